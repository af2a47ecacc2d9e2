#include "planners/noplanner.h"

#include "hall/cells.h"
#include "hall/menus.h"
#include "hall/startcard.h"
#include "planners/cardplanners.h"
#include "planners/opening.h"
#include "platform/desktop/filesystem.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"
#include "state/calendarstate.h"
#include "state/plannerstate.h"

NoPlanner::NoPlanner(Cells& cells, Menus& menus, StartCard& card, Opening& opening) : m_cells(cells), m_card(card)
{
    WireCells();
    WireCard(menus, opening);
}

void NoPlanner::WireCells()
{
    QObject::connect(&m_cells, &Cells::Redrawn, &m_card, Guarded(" in MainForm, NoPlanner"_L1, [this] {
        if (!m_card.isHidden()) PlaceCard();
    }));
    QObject::connect(&m_cells, &Cells::KeyPress, &m_card,
                     Guarded(" in MainForm, tbDay_KeyPress"_L1, [this](int, int& KeyAscii) {
                         const bool types = KeyAscii >= u' ' || KeyAscii == u'\r'; // Esc and Ctrl+P do not
                         if (types && RefusesWithout()) KeyAscii = 0;
                     }));
}

void NoPlanner::WireCard(Menus& menus, Opening& opening)
{
    QObject::connect(&m_card, &StartCard::New, menus("mnuNew"_L1).Action(), &QAction::trigger);
    QObject::connect(&m_card, &StartCard::Open, menus("mnuOpen"_L1).Action(), &QAction::trigger);
    QObject::connect(&m_card, &StartCard::OpenPlanner, &m_card,
                     Guarded(" in MainForm, mnuMRU_Click"_L1, [this, &opening](const QString& path) {
                         if (IsThere(path)) opening.OpenKnown(path);
                     }));
}

// Before the question how to open it, and with the folder, which the engine's message lacks.
bool NoPlanner::IsThere(const QString& path)
{
    if (!filesystem::Find(path).isEmpty()) return true;
    const int answer = MsgBox(u"This planner is not there:\n%1\n\nIt may have been moved, renamed or deleted, or its "
                              "drive may be away.\n\nDo you want to take it off this card?"_s.arg(path),
                              msgbox::YesNo + msgbox::Exclamation + msgbox::DefaultButton2, messages::HelpWizard);
    if (answer == msgbox::Yes) {
        TakeOffCard(path);
        ShowPlanners();
    }
    return false;
}

void NoPlanner::ShowPlanners()
{
    m_card.SetPlanners(CardPlanners());
    PlaceCard();
}

void NoPlanner::Follow(bool isOpen)
{
    if (isOpen) return Leave();
    ShowPlanners();
    m_card.show();
    m_card.window()->setAttribute(Qt::WA_KeyboardFocusChange); // the style shows the focus, as after a key
    m_card.setFocus();
}

// Today's cell is ready to be typed into, but not in a workgroup's planner, where a cell is chosen to be locked. At the
// start the focus has its place already.
void NoPlanner::Leave()
{
    Admit(true);
    if (m_card.isHidden()) return;
    const int today = g_bDBShared ? 0 : CellOfToday();
    if (m_cells.CellWithCaret() == 0 && today != 0) m_cells.tbDay(today).setFocus();
    if (m_card.HasFocus()) m_cells.Client()->setFocus(); // else the first cell would get it
    m_card.hide();
}

int NoPlanner::CellOfToday() const
{
    const int today = ShownToday();
    for (int cell = 1; today != 0 && cell <= CellCount; ++cell)
        if (m_cells.Shows(cell) && m_cells.DayOf(cell) == today) return cell;
    return 0;
}

bool NoPlanner::RefusesWithout() const
{
    if (m_card.isHidden()) return false;
    messages::Tell(messages::NoPlannerForEvents);
    return true;
}

// In the middle of the shown cells. A view that was not shown before has new cells.
void NoPlanner::PlaceCard()
{
    QRect area;
    for (int cell = 1; cell <= CellCount; ++cell)
        if (m_cells.Shows(cell)) area |= m_cells.panelDay(cell).geometry();
    m_card.Place(area.isEmpty() ? m_cells.Client()->rect() : area);
    Admit(false);
}

// Without a planner no cell shows a caret, and Tab passes over the cells, since the card hides some of them.
void NoPlanner::Admit(bool isOpen)
{
    constexpr int UsualWidth = -1;
    for (int cell = 1; cell <= CellCount; ++cell) {
        if (!m_cells.tbDay.Exists(cell)) continue;
        m_cells.tbDay(cell).setCursorWidth(isOpen ? UsualWidth : 0);
        m_cells.tbDay(cell).setFocusPolicy(isOpen ? Qt::StrongFocus : Qt::ClickFocus);
    }
}
