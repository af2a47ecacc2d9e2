#include "calendar/redraw.h"

#include "hall/cells.h"
#include "hall/foot.h"
#include "hall/panelstyle.h"
#include "notes/alarmmarks.h"
#include "platform/desktop/clock.h"
#include "platform/desktop/mousepointer.h"
#include "platform/look/paper.h"
#include "platform/runtime/errortail.h"
#include "platform/runtime/language.h"
#include "settings/settings.h"
#include "state/calendarstate.h"
#include "state/modshow.h"
#include "state/viewmode.h"

#include <algorithm>
#include <optional>

namespace {
constexpr int DaysInWeek = 7;

struct CellStyles
{
    PanelStyle memo;
    PanelStyle daily;
    PanelStyle today;
    std::optional<int> font3D; // empty: unchanged
    int todaysDay = ShownToday();
};

void ShowSlot(Cells& cells, int cell, const DaySlot& slot, const CellStyles& styles)
{
    cells.Number(cell, slot);
    SSPanel& panel = cells.panelDay(cell);
    const bool isToday = !slot.isMemo && slot.number == styles.todaysDay;
    ApplyStyle(panel, slot.isMemo ? styles.memo : isToday ? styles.today : styles.daily);
    if (styles.font3D) panel.SetFont3D(*styles.font3D);
    panel.SetPaper(slot.isMemo ? paper::MemoPaper : isToday ? paper::Today : paper::Paper);
    panel.SetFrame(isToday ? paper::TodayFrame : QColor());
}

DaySlot SlotOf(int value)
{
    const int days = fnDaysInMonth();
    return {value > days, value > days ? value - days : value};
}

void StepMonth(int step)
{
    g_iMonth = CInt(g_iMonth + step);
    if (g_iMonth >= 1 && g_iMonth <= 12) return;
    g_iMonth = step > 0 ? 1 : 12;
    g_iYear = CInt(g_iYear + step);
}

// How many days at the start of the shown month are past.
int PastDays()
{
    constexpr int All = 32;
    const QDate today = desktopclock::Now().date();
    if (g_iYear != today.year()) return g_iYear < today.year() ? All : 0;
    if (g_iMonth != today.month()) return g_iMonth < today.month() ? All : 0;
    return today.day() - 1;
}
} // namespace

void Redraw::DisplayMonthCells()
{
    const CellStyles styles = {ReadStyle(settings::MemoPanel), ReadStyle(settings::DailyPanel),
                               ReadStyle(settings::TodayPanel), Read(settings::DailyFont3D)};
    const std::int16_t firstWeekday = fnFirstDayOfMonth();
    const auto grid = MonthGrid(firstWeekday, fnDaysInMonth());
    for (int cell = FirstMonthCell; cell <= LastMonthCell; ++cell) {
        const DaySlot& slot = grid[static_cast<std::size_t>(cell - 1)];
        SSPanel& panel = m_cells.panelDay(cell);
        panel.Tag = slot.isMemo ? u"Memo"_s : QString();
        panel.SetCaptionAlignment(slot.isMemo ? SSPanel::CenterTop : SSPanel::LeftTop);
        ShowSlot(m_cells, cell, slot, styles);
    }
}

void Redraw::FinishRedraw()
{
    subUnloadAlarmIcons(m_cells);
    subStylePastDates();
    g_iCurrentPanel = 0;
    Q_EMIT m_cells.Redrawn();
}

void Redraw::Display()
{
    if (m_viewMode.GetViewMode() == ViewMode::Month) subDisplayMonth();
    if (m_viewMode.GetViewMode() == ViewMode::Week) subDisplayWeek();
}

void Redraw::subDisplayMonth()
{
    const ErrorTail tail(" in MODSHOW, subDisplayMonth"_L1);
    tail([&] { DisplayMonthCells(); });
    tail([&] { FinishRedraw(); });
}

void Redraw::MoveMonth(int step)
{
    const Hourglass hourglass;
    const ErrorTail tail(step > 0 ? " in MODSHOW, subDisplayNextMonth"_L1 : " in MODSHOW, subDisplayPrevMonth"_L1);
    tail([&] { StepMonth(step); });
    subDisplayMonth();
    m_foot.ShowMonth();
}

void Redraw::DisplayWeekCells(int firstSlot, bool with3D)
{
    CellStyles styles = {ReadStyle(settings::WeekMemo), ReadStyle(settings::WeekDaily), ReadStyle(settings::WeekToday),
                         std::nullopt};
    if (with3D) styles.font3D = Read(settings::WeekDailyFont3D);
    for (int cell = FirstWeekCell; cell <= LastWeekCell; ++cell) {
        const int value = g_aiCalendar.at(static_cast<std::size_t>(firstSlot - 1 + cell - FirstWeekCell));
        ShowSlot(m_cells, cell, SlotOf(value), styles);
    }
}

void Redraw::subDisplayWeek()
{
    const ErrorTail tail(" in MODSHOW, subDisplayWeek"_L1);
    tail([&] {
        // The table of month lengths is not refreshed here. After week moves across a year's end February therefore
        // keeps the length of the last month drawn.
        g_aiCalendar = WeekMap(Weekday(g_iYear, g_iMonth, 1), fnDaysInMonth());
        DisplayWeekCells(FirstSlotOfWeek(g_iYear, g_iMonth, g_iDay), true);
    });
    tail([&] { FinishRedraw(); });
}

void Redraw::MoveWeek(int step)
{
    const ErrorTail tail(step > 0 ? " in MODSHOW, subDisplayNextWeek"_L1 : " in MODSHOW, subDisplayPrevWeek"_L1);
    tail([&] {
        const int edge = m_cells.DayOf(step > 0 ? LastWeekCell : FirstWeekCell);
        if (edge != 0 && edge != (step > 0 ? fnDaysInMonth() : 1)) return DisplayWeekBeside(edge, step);
        StepMonth(step);
        g_iDay = step > 0 ? std::int16_t{1} : fnDaysInMonth();
        subDisplayWeek();
    });
}

// edge is the shown row's last day in the direction of the step.
void Redraw::DisplayWeekBeside(int edge, int step)
{
    const auto found = std::find(g_aiCalendar.begin(), g_aiCalendar.end(), edge);
    const int slot = static_cast<int>(found - g_aiCalendar.begin()) + 1;
    DisplayWeekCells(step > 0 ? slot + 1 : slot - DaysInWeek, false);
    FinishRedraw();
}

bool Redraw::ShowsOtherWeek() const
{
    if (!m_cells.panelDay.Exists(FirstWeekCell)) return true;
    const int slot = FirstSlotOfWeek(g_iYear, g_iMonth, g_iDay);
    const int value = WeekMap(Weekday(g_iYear, g_iMonth, 1), fnDaysInMonth()).at(static_cast<std::size_t>(slot - 1));
    return m_cells.panelDay(FirstWeekCell).Caption() != SlotOf(value).Caption();
}

void Redraw::subStylePastDates()
{
    const int viewMode = m_viewMode.GetViewMode();
    if (viewMode != ViewMode::Month && viewMode != ViewMode::Week) return;
    const int pastDays = PastDays();
    if (pastDays == 0) return;
    const bool isMonth = viewMode == ViewMode::Month;
    const PanelStyle past = ReadStyle(isMonth ? settings::PastDatePanel : settings::WeekPastDate);
    const bool struckOut = Read(isMonth ? settings::PastDateStrikeThru : settings::WeekPastDateStrikeThru) == -1;
    for (const int cell : CellsOf(viewMode)) {
        const int day = m_cells.DayOf(cell);
        if (day == 0 || day > pastDays) continue;
        SSPanel& panel = m_cells.panelDay(cell);
        ApplyStyle(panel, past);
        QFont font = panel.CaptionFont();
        font.setStrikeOut(struckOut);
        panel.SetCaptionFont(font);
    }
}
