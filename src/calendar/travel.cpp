#include "calendar/travel.h"

#include "calendar/navigation.h"
#include "hall/bars.h"
#include "hall/cells.h"
#include "platform/controls/picturebutton.h"
#include "platform/runtime/errortail.h"
#include "state/viewmode.h"

#include <QKeyEvent>

#include <array>
#include <cstdlib>

namespace {
constexpr int DaysOfWeek = 7;

struct Direction
{
    Qt::Key key;
    int distance; // in cells
};
constexpr std::array Directions = {Direction{Qt::Key_Left, -1}, Direction{Qt::Key_Right, 1},
                                   Direction{Qt::Key_Up, -DaysOfWeek}, Direction{Qt::Key_Down, DaysOfWeek}};
} // namespace

Travel::Travel(Cells& cells, const BottomPanel& bottom, const ViewMode& viewMode, Navigation& navigation)
    : QObject(cells.Client()), m_cells(cells), m_bottom(bottom), m_viewMode(viewMode), m_navigation(navigation)
{
    cells.Client()->installEventFilter(this);
}

bool Travel::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::Wheel) return Turn(*static_cast<QWheelEvent*>(event));
    if (event->type() == QEvent::KeyPress) return Step(*static_cast<QKeyEvent*>(event));
    return false;
}

bool Travel::TurnsPages(const QWidget* widget) const
{
    for (int day = 0; day < DaysOfWeek; ++day)
        if (m_cells.lblDayOfWeek.Exists(day) && widget == &m_cells.lblDayOfWeek(day)) return true;
    return widget && (widget == m_bottom.panelBottom || m_bottom.panelBottom->isAncestorOf(widget));
}

bool Travel::Turn(const QWheelEvent& event)
{
    const bool zooms = event.modifiers() & Qt::ControlModifier;
    if (zooms || !TurnsPages(m_cells.Client()->childAt(event.position().toPoint()))) return false;
    Guarded(" in MainForm, Travel"_L1, [&] {
        const int notches = m_notches.Take(event);
        for (int page = 0; page < std::abs(notches); ++page)
            notches > 0 ? m_navigation.subActionPrevious() : m_navigation.subActionNext();
    })();
    return true;
}

bool Travel::Step(const QKeyEvent& event)
{
    const int cell = m_cells.CellWithCaret();
    if (cell == 0 || (event.modifiers() & ~Qt::KeypadModifier) != Qt::AltModifier) return false;
    int target = 0;
    for (const Direction& direction : Directions)
        if (event.key() == direction.key) target = Beside(cell, direction.distance);
    if (event.key() == Qt::Key_Home || event.key() == Qt::Key_End) target = DayAtEnd(event.key() == Qt::Key_End);
    if (target != 0) m_cells.tbDay(target).setFocus(Qt::ShortcutFocusReason);
    return target != 0;
}

int Travel::Beside(int cell, int distance) const
{
    const CellRange range = CellsOf(m_viewMode.GetViewMode());
    const int beside = cell + distance;
    return beside >= range.first && beside <= range.last && m_cells.Shows(beside) ? beside : 0;
}

// In the month, days that do not fit wrap to the first row; in the week, a month can begin.
int Travel::DayAtEnd(bool last) const
{
    const bool isMonth = m_viewMode.GetViewMode() == ViewMode::Month;
    const auto rank = [&](int cell) { return isMonth ? m_cells.DayOf(cell) : cell; };
    int found = 0;
    for (const int cell : CellsOf(m_viewMode.GetViewMode())) {
        if (!m_cells.Shows(cell) || m_cells.DayOf(cell) == 0) continue;
        if (found == 0 || (rank(cell) > rank(found)) == last) found = cell;
    }
    return found;
}
