// The command that opens the window of recurring events.
#pragma once

class Cells;
class FontCommand;
class QMTDB;
class ViewMode;

class RecurringEvents
{
public:
    RecurringEvents(Cells& cells, QMTDB& notes, const ViewMode& viewMode, FontCommand& fontCommand)
        : m_cells(cells), m_notes(notes), m_viewMode(viewMode), m_fontCommand(fontCommand)
    {
    }

    void mnuRecurse_Click(); // in a personal planner alone; says so elsewhere

private:
    Cells& m_cells;
    QMTDB& m_notes;
    const ViewMode& m_viewMode;
    FontCommand& m_fontCommand;
};
