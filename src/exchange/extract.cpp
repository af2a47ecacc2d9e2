#include "exchange/extract.h"

#include <QDate>

namespace {
// Not by the desktop's language, so that a file written elsewhere is read.
constexpr const char* Weekdays[] = {"Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"};
} // namespace

QString HeadingOf(const ExtractedNote& note)
{
    const auto [year, month, day] = note.day;
    const QString monthText = u"%1-%2"_s.arg(year, 4, 10, QChar(u'0')).arg(month, 2, 10, QChar(u'0'));
    if (note.memo != 0) return u"%1 Memo %2"_s.arg(monthText).arg(note.memo);
    const QString dayText = u"%1-%2"_s.arg(monthText).arg(day, 2, 10, QChar(u'0'));
    const QDate date(year, month, day); // the grid has a February 29 that no other calendar has
    return date.isValid() ? dayText + u' ' + QLatin1StringView(Weekdays[date.dayOfWeek() - 1]) : dayText;
}
