// The drawing half of MODSHOW: numbers and styles the cells of the shown month or week. Reads no notes.
#pragma once

#include <QLatin1StringView>

class Cells;
class Foot;
class ViewMode;

class Redraw
{
public:
    Redraw(Cells& cells, Foot& foot, const ViewMode& viewMode) : m_cells(cells), m_foot(foot), m_viewMode(viewMode) {}

    void Display(); // the current view
    void subDisplayMonth();
    void subDisplayNextMonth() { MoveMonth(1); } // keeps the selected day
    void subDisplayPrevMonth() { MoveMonth(-1); }
    void subDisplayWeek(); // the row of g_iDay; fills g_aiCalendar
    // The row after or before the shown one. If the month changes, g_iDay becomes its nearest day; otherwise it stays,
    // and the row need not contain it.
    void subDisplayNextWeek() { MoveWeek(1); }
    void subDisplayPrevWeek() { MoveWeek(-1); }
    bool ShowsOtherWeek() const; // than the week of g_iDay

private:
    void DisplayMonthCells();
    void DisplayWeekCells(int firstSlot, bool with3D);
    void MoveWeek(int step);
    void DisplayWeekBeside(int edge, int step);
    void FinishRedraw();
    void subStylePastDates();
    void MoveMonth(int step);

    Cells& m_cells;
    Foot& m_foot;
    const ViewMode& m_viewMode;
};
