#include "exchange/extract.h"

#include <QDate>

namespace {
// Not by the desktop's language, so that a file written elsewhere is read.
constexpr const char* Weekdays[] = {"Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"};
} // namespace

std::optional<ExtractedNote> PlaceOf(const QString& key)
{
    constexpr QStringView Memo(u"Memo");
    if (const auto day = DayOfKey(key)) return ExtractedNote{*day, 0, {}};
    const QString place = key.section(u'/', 2);
    const int memo = place.startsWith(Memo) ? place.sliced(Memo.size()).toInt() : 0;
    const GridDay month{fnGetQMTYear(key), fnGetQMTMonth(key), 1};
    if (memo < 1 || !IsDayOfGrid(month)) return {};
    return ExtractedNote{{month.year, month.month, 0}, memo, {}};
}

QString KeyOfNote(const ExtractedNote& note)
{
    return note.memo == 0 ? KeyOf(note.day) : u"%1/%2/Memo%3"_s.arg(note.day.year).arg(note.day.month).arg(note.memo);
}

QString HeadingOf(const ExtractedNote& note)
{
    const auto [year, month, day] = note.day;
    const QString monthText = u"%1-%2"_s.arg(year, 4, 10, QChar(u'0')).arg(month, 2, 10, QChar(u'0'));
    if (note.memo != 0) return u"%1 Memo %2"_s.arg(monthText).arg(note.memo);
    const QString dayText = u"%1-%2"_s.arg(monthText).arg(day, 2, 10, QChar(u'0'));
    const QDate date(year, month, day); // the grid has a February 29 that no other calendar has
    return date.isValid() ? dayText + u' ' + QLatin1StringView(Weekdays[date.dayOfWeek() - 1]) : dayText;
}
