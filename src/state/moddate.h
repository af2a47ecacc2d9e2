// Dates as texts. An entry date is month/day/year as in the boxes ("07/04/1999"). A date key is year/month/day without
// padding ("1999/7/4"), or year/month/Memo3 for a memo. Plain computation; unreadable parts are 0.
#pragma once

#include <QDate>
#include <QString>

#include <compare>
#include <cstdint>
#include <optional>

// A day of the grid. It is not a QDate, since the grid has February 29 in every fourth year, centuries included. The
// members are int, since a long step of an event can exceed 16 bits.
struct GridDay
{
    int year = 0;
    int month = 0;
    int day = 0;
    auto operator<=>(const GridDay&) const = default;
};

bool IsDayOfGrid(const GridDay& day);
GridDay GridDayOf(const QDate& date);
QString KeyOf(const GridDay& day);                       // its date key
std::optional<GridDay> DayOfKey(const QString& dateKey); // empty for memos and days not in the grid

std::int16_t fnGetDay(const QString& entryDate);
std::int16_t fnGetMonth(const QString& entryDate);
std::int16_t fnGetYear(const QString& entryDate); // the last four characters; may raise errors::Overflow
QString fnFnGetQMTDate(const QString& entryDate); // its date key

std::int16_t fnGetQMTDay(const QString& dateKey); // 0 for a memo key
std::int16_t fnGetQMTMonth(const QString& dateKey);
std::int16_t fnGetQMTYear(const QString& dateKey); // the first four characters

QString fnMonthAbbrev(int month);                // "Jan" to "Dec", else empty
QString fnFormatDateKey(const QString& dateKey); // "Jul 4, 1999", "Jul Memo3, 1999"
bool fnValidateDate(const QString& entryDate);
