// The command that puts an earlier text of a day back into its cell.
#pragma once

#include <QByteArray>

class Cells;
class DayView;
class HeldDay;

class EarlierVersions
{
public:
    EarlierVersions(Cells& cells, HeldDay& heldDay, const DayView& dayView)
        : m_cells(cells), m_heldDay(heldDay), m_dayView(dayView)
    {
    }

    // Anybody may look. In a workgroup's planner only the holder of the day's lock writes, so putting back takes it.
    void mnuVersions_Click();

private:
    bool MayWrite(int cell);
    void PutBack(int cell, const QByteArray& rtf);

    Cells& m_cells;
    HeldDay& m_heldDay;
    const DayView& m_dayView;
};
