#include "state/calendarstate.h"

#include "platform/desktop/clock.h"
#include "platform/runtime/runtimeerror.h"

std::int16_t g_iYear = 0;
std::int16_t g_iMonth = 0;
std::int16_t g_iDay = 0;
std::int16_t g_iCurrentPanel = 0;
std::int16_t g_iLanguage = 0;
std::array<std::int16_t, 14> g_aiDaysInMonth{};
std::array<std::int16_t, CellCount> g_aiCalendar{};
std::array<std::int16_t, CellCount> g_aiLockState{};

namespace {
std::int16_t& State(int cell)
{
    if (cell < 1 || cell > CellCount) {
        throw RunTimeError{errors::SubscriptOutOfRange, u"Subscript out of range"_s};
    }
    return g_aiLockState[static_cast<std::size_t>(cell - 1)];
}
} // namespace

bool IsMarked(int cell)
{
    return State(cell) == 1;
}

void Mark(int cell, bool marked)
{
    State(cell) = marked ? 1 : 0;
}

void ClearMarks()
{
    g_aiLockState = {};
}

int MarkedCell(int except)
{
    for (int cell = 1; cell <= CellCount; ++cell) {
        if (cell != except && IsMarked(cell)) return cell;
    }
    return 0;
}

void GoToToday()
{
    const QDate today = desktopclock::Now().date();
    g_iYear = static_cast<std::int16_t>(today.year());
    g_iMonth = static_cast<std::int16_t>(today.month());
    g_iDay = static_cast<std::int16_t>(today.day());
}

int ShownToday()
{
    const QDate today = desktopclock::Now().date();
    return today.year() == g_iYear && today.month() == g_iMonth ? today.day() : 0;
}

void ResetCalendarStateForTests()
{
    g_iYear = g_iMonth = g_iDay = g_iCurrentPanel = g_iLanguage = 0;
    g_aiDaysInMonth = {};
    g_aiCalendar = {};
    g_aiLockState = {};
}
