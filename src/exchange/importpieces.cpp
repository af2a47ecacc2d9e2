#include "exchange/importpieces.h"

#include "exchange/changednote.h"
#include "recurrence/recurdates.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace {
using Kind = ImportedPiece::Kind;

// The least frequent event that meets all of the days: its removal searches each date of its walk.
Frequency FrequencyThrough(const QStringList& keys)
{
    constexpr int MostYears = 100; // a walk over more is long, and no person's
    if (fnGetQMTYear(keys.last()) - fnGetQMTYear(keys.first()) > MostYears) return Frequency::Daily;
    const auto meetsAll = [&keys](Frequency frequency) {
        const QStringList walk = RemovalDates(frequency, keys.first(), keys.last());
        const QSet<QString> dates(walk.cbegin(), walk.cend());
        return std::ranges::all_of(keys, [&dates](const QString& key) { return dates.contains(key); });
    };
    constexpr Frequency rarestFirst[] = {Frequency::Yearly, Frequency::Monthly, Frequency::Weekly};
    const auto found = std::ranges::find_if(rarestFirst, meetsAll);
    return found == std::end(rarestFirst) ? Frequency::Daily : *found;
}

// The days of each text of a rule. A rule of another time zone has two texts, one for the summer.
std::map<QByteArray, QStringList> EventsOf(const ImportedEntry& entry)
{
    constexpr size_t MostTexts = 4; // more are no event that a person would know again
    std::map<QByteArray, QStringList> days;
    if (!entry.repeats) return days;
    for (const ExtractedNote& note : entry.notes)
        if (note.memo == 0) days[note.rtf] += KeyOf(note.day);
    std::erase_if(days, [](const auto& text) { return text.second.size() < 2; });
    return days.size() > MostTexts ? decltype(days)() : days;
}
} // namespace

std::map<ImportedPiece, QByteArray> PiecesOf(const ImportedEntry& entry)
{
    QHash<QByteArray, QString> texts; // the days of a rule share one
    const auto textOf = [&texts](const QByteArray& rtf) {
        QString& text = texts[rtf];
        if (text.isNull()) text = LinesOfNote(rtf);
        return text;
    };
    std::map<ImportedPiece, QByteArray> pieces;
    for (const ExtractedNote& note : entry.notes)
        pieces[{Kind::Note, KeyOfNote(note), {}, textOf(note.rtf)}] = note.rtf;
    const std::vector<ExtractedAlarm> none;
    for (const ExtractedAlarm& alarm : entry.takesAlarms ? entry.alarms : none) {
        const QString time = QTime(0, 0).addSecs(60 * alarm.minute).toString(u"HH:mm"_s);
        pieces[{Kind::Alarm, KeyOf(alarm.day), time, textOf(alarm.rtf)}] = alarm.rtf;
    }
    for (const auto& [rtf, days] : EventsOf(entry)) {
        const QString detail = WordOf(FrequencyThrough(days)) + u' ' + days.last();
        pieces[{Kind::Event, days.first(), detail, textOf(rtf)}] = rtf;
    }
    return pieces;
}
