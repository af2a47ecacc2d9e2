#include "calendar/ccalendarview.h"

#include "calendar/redraw.h"
#include "hall/bars.h"
#include "hall/cells.h"
#include "hall/panelstyle.h"
#include "notes/alarmmarks.h"
#include "platform/controls/picturebutton.h"
#include "platform/desktop/mousepointer.h"
#include "platform/engine/engineerrors.h"
#include "platform/runtime/errortail.h"
#include "settings/settings.h"
#include "state/calendarstate.h"
#include "state/modshow.h"
#include "state/plannerstate.h"

namespace {
constexpr int Columns = 7;
constexpr int Rows = 5;

constexpr int NoteLeft = 6, NoteTop = 20, NoteNarrower = 12, NoteLower = 25;

// An unknown view counts as the month view. The day view has no cells.
constexpr int ViewAtStart(int preference)
{
    return preference == ViewMode::Day || preference == ViewMode::Week ? preference : ViewMode::Month;
}
} // namespace

CCalendarView::CCalendarView(Cells& cells, const Sidebar& sidebar)
    : m_cells(cells), m_sidebar(sidebar), m_iViewMode(ViewAtStart(Read(settings::ViewPref))),
      m_bStartsMinimized(Read(settings::Minimized) == 1)
{
    if (m_iViewMode == ViewMode::Week) LoadCells(FirstWeekCell, LastWeekCell);
    if (m_iViewMode == ViewMode::Month) LoadCells(FirstMonthCell, LastMonthCell);
    for (int day = 1; day < Columns; ++day)
        m_cells.lblDayOfWeek.Load(day);
}

void CCalendarView::LoadCells(int first, int last)
{
    bool& loaded = first == FirstWeekCell ? m_bWeekPanelsLoaded : m_bMonthPanelsLoaded;
    if (loaded) return;
    for (int cell = first; cell <= last; ++cell) {
        m_cells.panelDay.Load(cell);
        m_cells.tbDay.Load(cell);
    }
    loaded = true;
}

void CCalendarView::Show(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom)
{
    const ErrorTail tail(" in CCalendarView, Show"_L1);
    const Hourglass hourglass;
    const std::int32_t gridTop = top + m_cells.lblDayOfWeek(0).height();
    tail([&] { PosDayOfWeek({left, top, right, bottom}); });
    ShowViewButtons();
    if (m_iViewMode == ViewMode::Week) tail([&] { PosWeekPanels({left, gridTop, right, bottom}); });
    if (m_iViewMode == ViewMode::Month) tail([&] { PosMonthPanels({left, gridTop, right, bottom}); });
    m_rcView = {left, top, right, bottom};
}

void CCalendarView::ShowViewButtons()
{
    if (m_iViewMode != ViewMode::Week && m_iViewMode != ViewMode::Month) return;
    m_sidebar.picWeek->ShowElement(m_iViewMode == ViewMode::Week ? 1 : 0);
    m_sidebar.picMonth->ShowElement(m_iViewMode == ViewMode::Month ? 1 : 0);
}

void CCalendarView::PosDayOfWeek(const Rectangle& area)
{
    const int width = (area.right - area.left) / Columns;
    const int rest = area.right - area.left - Columns * width;
    for (int day = 0; day < Columns; ++day) {
        SSPanel& heading = m_cells.lblDayOfWeek(day);
        const bool isLast = day == Columns - 1;
        heading.setGeometry(area.left + day * width, area.top, isLast ? width + rest : width, heading.height());
        heading.setVisible(true);
        if (day > 0) heading.SetCaption(fnDayOfWeekName(day));
        StyleHeading(heading);
    }
}

void CCalendarView::PlaceCell(int cell, int column, int top, int height)
{
    const SSPanel& heading = m_cells.lblDayOfWeek(column);
    SSPanel& panel = m_cells.panelDay(cell);
    RichTextBox& box = m_cells.tbDay(cell);
    panel.setGeometry(heading.x(), top, heading.width(), height);
    box.setGeometry(heading.x() + NoteLeft, top + NoteTop, qMax(0, heading.width() - NoteNarrower),
                    qMax(0, height - NoteLower));
    // Lines break at the edge of the box, not at a page width.
    box.SetRightMargin(0);
    panel.setVisible(true);
    box.raise();
    box.setVisible(true);
}

void CCalendarView::PosWeekPanels(const Rectangle& area)
{
    PosPanels(ViewMode::Week, " in CCalendarView, PosWeekPanels"_L1,
              [&](int place) { PlaceCell(FirstWeekCell + place, place, area.top, area.bottom - area.top); });
}

void CCalendarView::PosMonthPanels(const Rectangle& area)
{
    const int rowHeight = (area.bottom - area.top) / Rows;
    const int rest = area.bottom - area.top - Rows * rowHeight;
    PosPanels(ViewMode::Month, " in CCalendarView, PosMonthPanels"_L1, [&](int place) {
        const int row = place / Columns;
        // The last row takes the remainder and stops one pixel short of the bottom.
        const int height = row == Rows - 1 ? rowHeight + rest - 1 : rowHeight;
        PlaceCell(FirstMonthCell + place, place % Columns, area.top + row * rowHeight, height);
    });
}

// place counts from 0 within the view.
void CCalendarView::PosPanels(int mode, QLatin1StringView literal, const std::function<void(int place)>& placeCell)
{
    // While Compact works the planner is closed, and the window may change its size.
    const ErrorTail tail(literal, {errors::NoSuchElement, engineerrors::Closed});
    const CellRange cells = CellsOf(mode);
    tail([&] { LoadCells(cells.first, cells.last); });
    for (const int cell : cells)
        tail([&] { placeCell(cell - cells.first); });
    SetViewMode(mode);
    tail([&] { m_redraw->Display(); });
    tail([&] { RestoreAlarmMarks(cells); });
}

void CCalendarView::RestoreAlarmMarks(CellRange cells)
{
    if (!HasPlanner()) return;
    const ReadTransaction reading(g_dbPlanner);
    reading.Expect(g_rsAlarm, m_cells.Keys(cells));
    for (const int cell : cells) {
        if (m_cells.btnTunes.Exists(cell)) {
            PlaceAlarmIcon(m_cells, cell);
        } else {
            subShowAlarmIcon(m_cells, m_cells.KeyOf(cell), cell);
        }
    }
}

void CCalendarView::Clear()
{
    m_cells.LeaveFor(*m_cells.Client()); // else the focus would go to the first toolbar button
    for (const int cell : CellsOf(m_iViewMode)) {
        if (cell == 0) continue; // the day view's range is cell 0 alone
        m_cells.panelDay(cell).setVisible(false);
        m_cells.tbDay(cell).setVisible(false);
    }
    m_cells.Client()->update(m_rcView.left, m_rcView.top, m_rcView.right - m_rcView.left,
                             m_rcView.bottom - m_rcView.top);
}

void CCalendarView::GetRect(std::int32_t& left, std::int32_t& top, std::int32_t& right, std::int32_t& bottom) const
{
    left = m_rcView.left;
    top = m_rcView.top;
    right = m_rcView.right;
    bottom = m_rcView.bottom;
}
