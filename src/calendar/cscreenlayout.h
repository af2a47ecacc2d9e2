// Divides the client area among toolbar, sidebar, status bar and calendar, as a person arranges them: shown or hidden,
// dragged to another side. Keeps the main window's rectangle from one run to the next.
#pragma once

#include "calendar/ccalendarview.h"

#include <QWidget>

#include <optional>

class CSidebarView;
class CStatusbarView;
class CToolbarView;
class QPoint;
class Turn;

class CScreenLayout
{
public:
    // client is the part of the main window that is divided.
    CScreenLayout(QWidget& client, CToolbarView& toolbar, CSidebarView& sidebar, CStatusbarView& statusbar,
                  CCalendarView& calendar, Redraw& redraw, Turn& turn)
        : m_client(client), m_window(*client.window()), m_toolbar(toolbar), m_sidebar(sidebar), m_statusbar(statusbar),
          m_calendar(calendar), m_redraw(redraw), m_turn(turn)
    {
    }

    void ShowWindow(bool minimized); // where the last run left it
    // Where the window stands, to be taken while it is shown; empty for a minimized one.
    std::optional<Rectangle> WindowPlace() const;
    void DestroyWindow(const std::optional<Rectangle>& place); // saves the place; that of a minimized window stays
    void RefreshLayout(); // as a switch of the view needs it, which saves and reads itself

    void Form_Resize(); // lays out again if the client area has changed
    void Form_DragDrop(const QPoint& dropped);
    void mnuViewTBVisible_Click();
    void mnuViewTBAlignTop_Click();
    void mnuViewTBAlignBottom_Click();
    void mnuViewSBVisible_Click();

private:
    Rectangle GetClientRect() const;
    void RestoreRectangle();
    void LayOutAgain(); // with the same view

    QWidget& m_client;
    QWidget& m_window;
    CToolbarView& m_toolbar;
    CSidebarView& m_sidebar;
    CStatusbarView& m_statusbar;
    CCalendarView& m_calendar;
    Redraw& m_redraw;
    Turn& m_turn;
    bool m_bMoving = false;
    Rectangle m_rcClient;
};
