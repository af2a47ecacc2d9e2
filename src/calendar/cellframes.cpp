#include "calendar/cellframes.h"

#include "hall/bars.h"
#include "hall/cells.h"
#include "platform/controls/picturestrip.h"
#include "platform/controls/toolbar.h"
#include "platform/runtime/errortail.h"
#include "state/calendarstate.h"
#include "state/plannerstate.h"

#include <QApplication>

#include <utility>

CellFrames::CellFrames(Cells& cells, const FormatBar& bar, const Sidebar& sidebar)
    : QObject(&cells), m_cells(cells), m_bar(bar), m_sidebar(sidebar)
{
    const auto follow = Guarded(" in CCalendarView, CellFrames"_L1, [this] { FollowFocus(); });
    connect(qApp, &QApplication::focusChanged, this, follow);
    // These signals also come while another window is active.
    connect(&cells, &Cells::GotFocus, this, follow);
    connect(&cells, &Cells::Left, this, follow);
    const auto followLocks = Guarded(" in MainForm, FollowLocks"_L1, [this] { FollowLocks(); });
    connect(&cells, &Cells::StateChanged, this, followLocks);
    connect(&cells, &Cells::Redrawn, this, followLocks);
}

void CellFrames::FollowFocus()
{
    // A menu or a message box only borrows the focus, so the window's own focus widget counts.
    const QWidget* now = m_cells.Client()->window()->focusWidget();
    if (!now || !m_cells.Client()->isAncestorOf(now)) return;
    const int cell = m_cells.CellWithCaret();
    Frame(cell);
    if (!IsTool(now)) Leave(cell);
}

// The toolbar and the pictures act on the note, so they must leave its selection in view.
bool CellFrames::IsTool(const QWidget* now) const
{
    return m_bar.tbTop->isAncestorOf(now) || m_sidebar.tbPictureBox->isAncestorOf(now);
}

void CellFrames::Frame(int cell)
{
    const int before = std::exchange(m_framed, cell);
    if (before == cell) return;
    if (before != 0) m_cells.panelDay(before).SetActive(false);
    if (cell != 0) m_cells.panelDay(cell).SetActive(true);
}

void CellFrames::Leave(int forCell)
{
    const int before = std::exchange(m_visited, forCell);
    if (before != forCell && before != 0) m_cells.tbDay(before).ShowBeginning();
}

// In a personal planner a mark only means that the cell was entered.
void CellFrames::FollowLocks()
{
    for (int cell = 1; cell <= CellCount; ++cell)
        if (m_cells.panelDay.Exists(cell)) m_cells.panelDay(cell).SetHeld(g_bDBShared && IsMarked(cell));
}
