// The command Find Word and its window.
#pragma once

#include "tools/hitcell.h"
#include "tools/hitlist.h"

#include <QPointer>

class FindWordForm;

class FindWord
{
public:
    // Sets how the engine reads stored notes.
    FindWord(Cells& cells, Turn& turn, Redraw& redraw, const ViewMode& viewMode, Navigation& navigation,
             const HitListNeeds& needs);
    ~FindWord();

    void mnuFindWord_Click(); // opens the only window or brings it to the front
    void mnuFindAll_Click();  // with the list
    void FollowPlanner();     // something was saved, or another planner opened
    void Unload();

private:
    Cells& m_cells;
    HitCell m_cell;
    const HitListNeeds m_needs;
    QPointer<FindWordForm> m_form;
};
