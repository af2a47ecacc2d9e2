#include "tools/findword.h"

#include "hall/cells.h"
#include "platform/engine/textview.h"
#include "platform/richtext/rtftextview.h"
#include "state/refusals.h"
#include "tools/findwordform.h"

FindWord::FindWord(Cells& cells, Turn& turn, Redraw& redraw, const ViewMode& viewMode, Navigation& navigation,
                   const HitListNeeds& needs)
    : m_cells(cells), m_cell(cells, turn, redraw, viewMode, navigation), m_needs(needs)
{
    SetTextView(RtfTextView);
}

FindWord::~FindWord()
{
    delete m_form; // it uses objects that are about to be deleted
}

void FindWord::mnuFindWord_Click()
{
    if (RefusesWithoutPlanner(messages::NoPlanner.arg(u"\n"_s))) return;
    if (!m_form) m_form = new FindWordForm(m_cells.Client()->window(), m_cell, m_needs);
    m_form->show();
    m_form->raise();
    m_form->activateWindow();
}

void FindWord::mnuFindAll_Click()
{
    mnuFindWord_Click();
    if (m_form) m_form->ShowAllDays();
}

void FindWord::FollowPlanner()
{
    if (m_form) m_form->FollowPlanner();
}

void FindWord::Unload()
{
    if (m_form) m_form->reject();
}
