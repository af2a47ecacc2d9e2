// The commands that open the window of recurring events.
#pragma once

class Cells;
class FontCommand;
class QMTDB;
struct Sidebar;
class ViewMode;

class RecurringEvents
{
public:
    RecurringEvents(Cells& cells, const Sidebar& sidebar, QMTDB& notes, const ViewMode& viewMode,
                    FontCommand& fontCommand)
        : m_cells(cells), m_sidebar(sidebar), m_notes(notes), m_viewMode(viewMode), m_fontCommand(fontCommand)
    {
    }

    void mnuRecurse_Click();
    void picRecurse_MouseDown(); // says so if there is no planner
    void picRecurse_MouseUp();
    void picRecurse_Click();

private:
    void Open(); // a personal planner alone

    Cells& m_cells;
    const Sidebar& m_sidebar;
    QMTDB& m_notes;
    const ViewMode& m_viewMode;
    FontCommand& m_fontCommand;
};
