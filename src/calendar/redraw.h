// MODSHOW's drawing half: numbers and styles the cells of the shown month or week. Reads no note.
#pragma once

#include <QString>

struct BottomPanel;
class Cells;
class ViewMode;

class Redraw
{
public:
    Redraw(Cells& cells, const BottomPanel& bottom, const ViewMode& viewMode)
        : m_cells(cells), m_bottom(bottom), m_viewMode(viewMode)
    {
    }

    void subDisplayMonth();
    void subDisplayNextMonth(); // leaves the selected day as it is
    void subDisplayPrevMonth();
    void subDisplayWeek(); // the row of g_iDay; fills g_aiCalendar
    // The row after or before the shown one. Across a month's end g_iDay becomes the day nearest to it; within the
    // month it stays, and the row need not hold it any more.
    void subDisplayNextWeek();
    void subDisplayPrevWeek();
    bool ShowsOtherWeek() const; // than that of g_iDay

private:
    void DisplayMonthCells();
    void DisplayWeekCells(int firstSlot, int daysInMonth, bool with3D);
    void MoveWeek(int step);
    void MoveAcrossMonth(int step);
    void DisplayWeekBeside(const QString& edge, int step);
    void FinishRedraw();
    void subStylePastDates();
    void MoveMonth(int step);

    Cells& m_cells;
    const BottomPanel& m_bottom;
    const ViewMode& m_viewMode;
};
