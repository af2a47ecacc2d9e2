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

private:
    void DisplayMonthCells();
    void DisplayWeekCells(int firstSlot, int daysInMonth);
    void subStylePastDates();
    void MoveMonth(int step);

    Cells& m_cells;
    const BottomPanel& m_bottom;
    const ViewMode& m_viewMode;
};

// "JULY 1999", the title at the foot of the calendar.
QString MonthTitle();
