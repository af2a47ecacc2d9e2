// Divides the client area among toolbar, sidebar, status bar and calendar, and keeps the main window's rectangle from
// one run to the next.
#pragma once

#include "calendar/ccalendarview.h"
#include "calendar/clientarea.h"

#include <optional>

class CSidebarView;
class CStatusbarView;
class CToolbarView;
class QWidget;

class CScreenLayout final : public ClientArea
{
public:
    // window is the main window, client the part of it that is divided.
    CScreenLayout(QWidget& window, QWidget& client) : m_window(window), m_client(client) {}

    void ShowWindow(bool minimized); // where the last run left it
    // Where the window stands, to be taken while it is shown; empty for a minimized one.
    std::optional<Rectangle> WindowPlace() const;
    void DestroyWindow(const std::optional<Rectangle>& place); // saves the place; that of a minimized window stays
    void GetClientRect(std::int32_t& left, std::int32_t& top, std::int32_t& right, std::int32_t& bottom) const override;
    void RefreshLayout(CToolbarView& toolbar, CSidebarView& sidebar, CStatusbarView& statusbar,
                       CCalendarView& calendar);
    bool ClientRectChanged() const; // since the last RefreshLayout

private:
    void RestoreRectangle();

    QWidget& m_window;
    QWidget& m_client;
    bool m_bMoving = false;
    Rectangle m_rcClient;
};
