// The main window's bars as a person arranges them: shown or hidden, dragged to another side. Each change lays the
// window out anew.
#pragma once

class CCalendarView;
class CScreenLayout;
class CSidebarView;
class CStatusbarView;
class CToolbarView;
class QPoint;
class Redraw;
class Turn;

class Bars
{
public:
    Bars(CScreenLayout& layout, CToolbarView& toolbar, CSidebarView& sidebar, CStatusbarView& statusbar,
         CCalendarView& calendar, Redraw& redraw, Turn& turn)
        : m_layout(layout), m_toolbar(toolbar), m_sidebar(sidebar), m_statusbar(statusbar), m_calendar(calendar),
          m_redraw(redraw), m_turn(turn)
    {
    }

    void RefreshLayout(); // as a switch of the view needs it, which saves and reads itself
    void Form_Resize();   // lays out again if the client area has changed
    void Form_DragDrop(const QPoint& dropped);

    void mnuViewTBVisible_Click();
    void mnuViewTBAlignTop_Click();
    void mnuViewTBAlignBottom_Click();
    void mnuViewSBVisible_Click();

private:
    void LayOutAgain(); // with the same view

    CScreenLayout& m_layout;
    CToolbarView& m_toolbar;
    CSidebarView& m_sidebar;
    CStatusbarView& m_statusbar;
    CCalendarView& m_calendar;
    Redraw& m_redraw;
    Turn& m_turn;
};
