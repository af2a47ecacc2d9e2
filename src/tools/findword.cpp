#include "tools/findword.h"

#include "hall/cells.h"
#include "plannerfile/refusals.h"
#include "platform/richtext/rtftextview.h"
#include "tools/findwordform.h"

FindWord::FindWord(Cells& cells, Turn& turn, Redraw& redraw, const ViewMode& viewMode)
    : m_cells(cells), m_turn(turn), m_redraw(redraw), m_viewMode(viewMode)
{
    SetTextView(RtfTextView);
}

FindWord::~FindWord()
{
    delete m_form; // what it stands on is about to go
}

void FindWord::mnuFindWord_Click()
{
    if (RefusesWithoutPlanner(messages::NoPlanner.arg(u"\n"_s))) return;
    if (!m_form) m_form = new FindWordForm(m_cells, m_turn, m_redraw, m_viewMode);
    m_form->show();
    m_form->raise();
    m_form->activateWindow();
}

void FindWord::Unload()
{
    if (m_form) m_form->reject();
}
