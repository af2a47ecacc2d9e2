// Dates as texts. An entry date is month/day/year as boxes yield it ("07/04/1999"); a date key is year/month/day
// without padding ("1999/7/4"), or year/month/Memo3 for a memo cell. Plain computation; what cannot be read is 0.
#pragma once

#include <QString>

#include <cstdint>

std::int16_t fnGetDay(const QString& entryDate);
std::int16_t fnGetMonth(const QString& entryDate);
std::int16_t fnGetYear(const QString& entryDate); // the last four characters; error 6 if they do not fit
QString fnFnGetQMTDate(const QString& entryDate); // its date key

std::int16_t fnGetQMTDay(const QString& dateKey); // 0 for a memo key
std::int16_t fnGetQMTMonth(const QString& dateKey);
std::int16_t fnGetQMTYear(const QString& dateKey); // the first four characters

QString fnMonthAbbrev(int month);                // "Jan" to "Dec", else empty
QString fnFormatDateKey(const QString& dateKey); // "Jul 4, 1999", "Jul Memo3, 1999"
bool fnValidateDate(const QString& entryDate);
