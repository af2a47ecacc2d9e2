#include "exchange/extraction.h"

#include "plannerfile/schema.h"

#include <QSet>
#include <QTime>

#include <algorithm>
#include <functional>

namespace {
GridDay LastDayOf(GridDay month)
{
    for (month.day = 31; !IsDayOfGrid(month); --month.day)
        ;
    return month;
}

bool Holds(const DaySpan& span, const ExtractedNote& place)
{
    if (place.memo == 0) return span.from <= place.day && place.day <= span.to;
    return span.from <= GridDay{place.day.year, place.day.month, 1} && LastDayOf(place.day) <= span.to;
}

struct Wanted
{
    std::function<bool(const ExtractedNote& place)> holds;
    QVariantList keys; // that may be wanted; empty if there are so many that a walk is quicker
};

void Take(const QString& key, const QByteArray& rtf, const Wanted& wanted, Extract& extract)
{
    auto note = PlaceOf(key);
    if (!note || !wanted.holds(*note) || rtf.trimmed().isEmpty()) return;
    note->rtf = rtf;
    extract.notes.push_back(std::move(*note));
}

void WalkNotes(const Database& planner, const Wanted& wanted, Extract& extract)
{
    planner.Walk(schema::Notes, {schema::DateField, schema::TextField}, [&](const QVariantList& values) {
        Take(values[0].toString(), values[1].toByteArray(), wanted, extract);
    });
}

// The keys that may stand in a span, or nothing if there are so many that a walk is quicker.
QVariantList KeysIn(const DaySpan& span)
{
    constexpr int MostMonths = 24, MostMemos = 9;
    const auto monthsOf = [](const GridDay& day) { return day.year * 12 + day.month - 1; };
    QVariantList keys;
    if (monthsOf(span.to) - monthsOf(span.from) >= MostMonths) return keys;
    for (int months = monthsOf(span.from); months <= monthsOf(span.to); ++months) {
        const GridDay month{months / 12, months % 12 + 1, 1};
        for (GridDay day = month; IsDayOfGrid(day); ++day.day)
            keys += KeyOf(day);
        for (int memo = 1; memo <= MostMemos; ++memo)
            keys += u"%1/%2/Memo%3"_s.arg(month.year).arg(month.month).arg(memo);
    }
    return keys;
}

void SeekNotes(const Database& planner, const ReadTransaction& reading, const Wanted& wanted, Extract& extract)
{
    Recordset notes = schema::OpenNotes(planner);
    reading.Expect(notes, wanted.keys);
    for (const QVariant& key : wanted.keys) {
        notes.Seek(schema::Equal, key);
        if (!notes.NoMatch()) Take(key.toString(), notes.Fields(schema::TextField).toByteArray(), wanted, extract);
    }
    notes.Close();
}

void ReadNotes(const Database& planner, const ReadTransaction& reading, const Wanted& wanted, Extract& extract)
{
    if (wanted.keys.isEmpty())
        WalkNotes(planner, wanted, extract);
    else
        SeekNotes(planner, reading, wanted, extract);
    std::ranges::stable_sort(extract.notes, {}, OrderOf);
}

void ReadAlarms(const Database& planner, const Wanted& wanted, Extract& extract)
{
    const QStringList fields{u"Alarm Date"_s, u"Alarm Time"_s, u"Alarm Note"_s};
    planner.Walk(schema::Alarms, fields, [&](const QVariantList& values) {
        const auto day = DayOfKey(values[0].toString());
        const QTime time = QTime::fromString(values[1].toString().trimmed(), u"H:m"_s);
        if (!day || !time.isValid() || !wanted.holds({*day, 0, {}})) return;
        extract.alarms.push_back({*day, time.hour() * 60 + time.minute(), values[2].toByteArray()});
    });
    std::ranges::stable_sort(extract.alarms, {}, [](const ExtractedAlarm& a) { return std::pair(a.day, a.minute); });
}

void ReadEvents(const Database& planner, Extract& extract)
{
    const QStringList fields{u"Start Date"_s, u"End Date"_s, u"Frequency"_s, u"Recursion Text"_s};
    planner.Walk(schema::Recursions, fields, [&](const QVariantList& values) {
        const auto first = DayOfKey(values[0].toString()), last = DayOfKey(values[1].toString());
        const auto frequency = FrequencyOf(values[2].toString());
        if (first && last && frequency) extract.events.push_back({*first, *last, *frequency, values[3].toByteArray()});
    });
}

// Planners of older versions lack the tables of alarms and events.
bool Has(const Database& planner, const QString& table)
{
    return planner.TableNames().contains(table, Qt::CaseInsensitive);
}
Extract Read(const Database& planner, const QString& title, const Wanted& wanted, bool withEvents)
{
    const ReadTransaction reading(planner);
    Extract extract;
    extract.title = title;
    ReadNotes(planner, reading, wanted, extract);
    if (Has(planner, schema::Alarms)) ReadAlarms(planner, wanted, extract);
    if (withEvents && Has(planner, schema::Recursions)) ReadEvents(planner, extract);
    return extract;
}
} // namespace

Extract ExtractFrom(const Database& planner, const QString& title, const std::optional<DaySpan>& span)
{
    if (!span) return Read(planner, title, {[](const ExtractedNote&) { return true; }, {}}, true);
    return Read(planner, title, {[&](const ExtractedNote& place) { return Holds(*span, place); }, KeysIn(*span)},
                false);
}

Extract ExtractDays(const Database& planner, const QString& title, const QStringList& keys)
{
    constexpr qsizetype MostSought = 1000;
    const QSet<QString> set(keys.begin(), keys.end());
    const auto holds = [&](const ExtractedNote& place) { return set.contains(KeyOfNote(place)); };
    const bool areMany = keys.isEmpty() || keys.size() > MostSought;
    return Read(planner, title, {holds, areMany ? QVariantList() : QVariantList(keys.begin(), keys.end())}, false);
}
