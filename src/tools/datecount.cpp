#include "tools/datecount.h"

#include <QDate>
#include <QRegularExpression>

namespace {
int JulianDay(const GridDay& day)
{
    return static_cast<int>(QDate(day.year, day.month, 1).toJulianDay()) + day.day - 1;
}

int Count(DateUnit unit, const GridDay& day)
{
    switch (unit) {
    case DateUnit::Week:
        return (JulianDay(day) + 1) / 7; // Julian day 0 was a Monday
    case DateUnit::Month:
        return day.year * 12 + day.month;
    default:
        return JulianDay(day);
    }
}
} // namespace

std::optional<GridDay> DayOfText(const QString& text)
{
    static const QRegularExpression form(u"^([0-9]{2})/([0-9]{2})/([0-9]{4})$"_s);
    const auto match = form.match(text);
    if (!match.hasMatch()) return {};
    const GridDay day = {match.captured(3).toInt(), match.captured(1).toInt(), match.captured(2).toInt()};
    return IsDayOfGrid(day) ? std::optional(day) : std::nullopt;
}

int DateDifferenceOf(DateUnit unit, const GridDay& from, const GridDay& to)
{
    return Count(unit, to) - Count(unit, from);
}
