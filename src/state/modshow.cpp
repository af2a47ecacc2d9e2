#include "state/modshow.h"

#include "platform/look/namedcolors.h"
#include "platform/runtime/language.h"
#include "platform/runtime/runtimeerror.h"
#include "state/calendarstate.h"

#include <chrono>

namespace {
constexpr std::array<int, 12> CommonLengths = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

using MonthNames = std::array<QStringView, 12>;
constexpr std::array<MonthNames, 3> MonthNamesByLanguage = {
    MonthNames{u"January", u"February", u"March", u"April", u"May", u"June", u"July", u"August", u"September",
               u"October", u"November", u"December"},
    MonthNames{u"Januar", u"Februar", u"Maerz", u"April", u"Mai", u"Juni", u"Juli", u"August", u"September", u"Oktober",
               u"November", u"Dezember"},
    MonthNames{u"Janvier", u"Fevrier", u"Mars", u"Avril", u"Mai", u"Juin", u"Juillet", u"Aout", u"Septembre",
               u"Octobre", u"Novembre", u"Decembre"},
};

constexpr std::array<QStringView, 7> WeekdayWords = {u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                                     u"Thursday", u"Friday", u"Saturday"};
} // namespace

bool fnIsLeapYear(int year)
{
    return year % 4 == 0;
}

int MonthLength(int year, int month)
{
    return month == 2 && fnIsLeapYear(year) ? 29 : CommonLengths.at(static_cast<std::size_t>(month - 1));
}

void subSetDaysInMonth(int year)
{
    g_aiDaysInMonth[0] = 0;
    for (int month = 1; month <= 12; ++month) {
        g_aiDaysInMonth[static_cast<std::size_t>(month)] = static_cast<std::int16_t>(MonthLength(year, month));
    }
}

std::int16_t fnDaysInMonth()
{
    if (g_iMonth < 0 || g_iMonth > 13) {
        throw RunTimeError{errors::SubscriptOutOfRange, u"Subscript out of range"_s};
    }
    return g_aiDaysInMonth[static_cast<std::size_t>(g_iMonth)];
}

int Weekday(int year, int month, int day)
{
    using namespace std::chrono;
    const sys_days first = std::chrono::year(year) / std::chrono::month(static_cast<unsigned>(month)) / 1;
    return static_cast<int>(weekday(first + days(day - 1)).c_encoding()) + 1;
}

std::int16_t fnFirstDayOfMonth()
{
    subSetDaysInMonth(g_iYear);
    return static_cast<std::int16_t>(Weekday(g_iYear, g_iMonth, 1));
}

QString MonthWord(int month)
{
    if (g_iLanguage < 0 || g_iLanguage > 2 || month < 1 || month > 12) return {};
    return MonthNamesByLanguage[static_cast<std::size_t>(g_iLanguage)][static_cast<std::size_t>(month - 1)].toString();
}

QString fnMonthName(int month)
{
    return MonthWord(month).toUpper();
}

QString MonthTitle()
{
    return fnMonthName(g_iMonth) + Str(g_iYear);
}

QString fnDayOfWeekName(int day)
{
    constexpr int LettersShown = 3;
    return day >= 0 && day <= 6 ? WeekdayWords[static_cast<std::size_t>(day)].left(LettersShown).toString() : QString();
}

std::uint32_t fnColorInHex(const QString& name)
{
    for (const NamedColor& color : NamedColors) {
        if (QString(color.name).toUpper() == name) return color.value;
    }
    return 0;
}

QString DaySlot::Caption() const
{
    return isMemo ? u"Memo"_s + TrimmedStr(number) : Str(number);
}

std::array<DaySlot, 35> MonthGrid(int firstWeekday, int length)
{
    std::array<DaySlot, 35> grid{};
    for (DaySlot& slot : grid)
        slot.isMemo = true;
    for (int day = 1; day <= length; ++day) {
        grid[static_cast<std::size_t>((firstWeekday + day - 2) % 35)] = {false, day};
    }
    int memo = 0;
    for (DaySlot& slot : grid) {
        if (slot.isMemo) slot.number = ++memo;
    }
    return grid;
}

std::array<std::int16_t, 42> WeekMap(int firstWeekday, int length)
{
    std::array<std::int16_t, 42> map{};
    int memo = length;
    for (int slot = 1; slot <= 42; ++slot) {
        const int day = slot - firstWeekday + 1;
        const bool isDay = day >= 1 && day <= length;
        map[static_cast<std::size_t>(slot - 1)] = static_cast<std::int16_t>(isDay ? day : ++memo);
    }
    return map;
}

int FirstSlotOfWeek(int year, int month, int day)
{
    return Weekday(year, month, 1) + day - Weekday(year, month, day);
}

bool IsMemoCaption(const QString& caption)
{
    return caption.startsWith(u"Memo");
}

QString DayInWords(const QString& caption)
{
    const QString month = MonthWord(g_iMonth);
    if (IsMemoCaption(caption)) {
        return u"Memo %1 of %2 %3"_s.arg(caption.mid(4)).arg(month).arg(g_iYear);
    }
    const int day = IntegerOf(caption);
    const QStringView weekday = WeekdayWords.at(static_cast<std::size_t>(Weekday(g_iYear, g_iMonth, day) - 1));
    return u"%1, %2 %3, %4"_s.arg(weekday).arg(month).arg(day).arg(g_iYear);
}

QString CellKey(const QString& caption)
{
    return TrimmedStr(g_iYear) + u'/' + TrimmedStr(g_iMonth) + u'/' + caption.trimmed();
}
