#include "calendar/cellframes.h"

#include "calendar/calendarstate.h"
#include "hall/cells.h"
#include "platform/runtime/errortail.h"

#include <QApplication>

namespace {
constexpr QLatin1StringView Literal(" in CCalendarView, CellFrames");
}

CellFrames::CellFrames(Cells& cells) : QObject(&cells), m_cells(cells)
{
    connect(qApp, &QApplication::focusChanged, this,
            Guarded(Literal, [this](QWidget*, QWidget* now) { FollowFocus(now); }));
    // Also where its window is not the active one.
    connect(&cells, &Cells::GotFocus, this, Guarded(Literal, [this](int Index) { Frame(&m_cells.panelDay(Index)); }));
}

void CellFrames::FollowFocus(QWidget* now)
{
    // A menu or a message box takes the focus away and gives it back: the cell stays the current one.
    if (!now || !m_cells.Client()->isAncestorOf(now)) return;
    SSPanel* panel = nullptr;
    for (int cell = 1; cell <= CellCount && !panel; ++cell) {
        if (m_cells.tbDay.Exists(cell) && &m_cells.tbDay(cell) == now) panel = &m_cells.panelDay(cell);
    }
    Frame(panel);
}

void CellFrames::Frame(SSPanel* panel)
{
    if (m_framed) m_framed->SetActive(false);
    m_framed = panel;
    if (m_framed) m_framed->SetActive(true);
}
