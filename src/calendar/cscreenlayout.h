// Divides the client area among toolbar, sidebar, status bar and calendar. The bars can be hidden, and the toolbar
// dragged to the other side. Stores the main window's rectangle.
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
    CScreenLayout(QWidget& client, CToolbarView& toolbar, CSidebarView& sidebar, CStatusbarView& statusbar,
                  CCalendarView& calendar, Redraw& redraw, Turn& turn)
        : m_client(client), m_window(*client.window()), m_toolbar(toolbar), m_sidebar(sidebar), m_statusbar(statusbar),
          m_calendar(calendar), m_redraw(redraw), m_turn(turn)
    {
    }

    void ShowWindow(bool minimized); // at its stored place
    // The window's rectangle. Ask while it is shown; empty for a minimised window.
    std::optional<Rectangle> WindowPlace() const;
    void DestroyWindow(const std::optional<Rectangle>& place); // saves the place; without one the stored place stays
    void RefreshLayout();                                      // for a view switch, which saves and reads by itself

    void Form_Resize(); // lays out if the client area has changed
    void Form_DragDrop(const QPoint& dropped);
    void mnuViewTBVisible_Click();
    void mnuViewTBAlignTop_Click();
    void mnuViewTBAlignBottom_Click();
    void mnuViewSBVisible_Click();

private:
    Rectangle GetClientRect() const;
    void RestoreRectangle();
    void LayOutAgain(); // keeps the view

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
