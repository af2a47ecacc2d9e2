// The entries of an iCalendar file, from the notes, alarms and recurring events of a planner.
#include "exchange/exportstamps.h"
#include "exchange/icalendarfile.h"
#include "exchange/icalendarrules.h"
#include "exchange/writers.h"
#include "platform/engine/longwork.h"

#include <QHash>

namespace {
// Other calendars know a real date only.
bool IsReal(const GridDay& day)
{
    return QDate::isValid(day.year, day.month, day.day);
}

QDate DateOf(const GridDay& day)
{
    return IsReal(day) ? QDate(day.year, day.month, day.day) : QDate(day.year, day.month + 1, 1);
}

QString WordsFor(const GridDay& day)
{
    return IsReal(day) ? QString() : fnFormatDateKey(KeyOf(day)) + OnlyHere;
}

QString IsoOf(const GridDay& day)
{
    return HeadingOf(ExtractedNote{day, 0, {}}).section(u' ', 0, 0);
}

// The uid of these is only the part that tells the planner's entries apart.

std::optional<CalendarEntry> EntryOf(const ExtractedNote& note)
{
    const GridDay day{note.day.year, note.day.month, std::max(note.day.day, 1)};
    EntryText text = TextOfEntry(note.rtf, WordsFor(day));
    if (text.isBlank) return {};
    const QString memo = note.memo == 0 ? QString() : u"Memo %1: "_s.arg(note.memo);
    text.summary = text.summary.isEmpty() ? HeadingOf(note) : memo + text.summary;
    const QString uid =
        memo.isEmpty() ? IsoOf(day) + u".note"_s : u"%1.memo%2"_s.arg(IsoOf(day).first(7)).arg(note.memo);
    return CalendarEntry{uid, DateOf(day), {}, std::move(text), {}};
}

CalendarEntry EntryOf(const ExtractedAlarm& alarm)
{
    EntryText text = TextOfEntry(alarm.rtf, WordsFor(alarm.day));
    if (text.summary.isEmpty()) text.summary = u"Alarm"_s;
    const QTime time = QTime(0, 0).addSecs(60 * alarm.minute);
    return {IsoOf(alarm.day) + time.toString(u"'T'hhmm'.alarm'"_s), DateOf(alarm.day), time, std::move(text), {}};
}

CalendarEntry EntryOf(const ExtractedEvent& event, const CalendarRule& rule)
{
    const QString record = KeyOf(event.first) + u' ' + KeyOf(event.last) + u' ' + WordOf(event.frequency) + u' ';
    return {ShortSum(record.toUtf8() + event.rtf) + u".event"_s, rule.first, {}, TextOfEntry(event.rtf), rule};
}

class Entries
{
public:
    Entries(const QString& title, qint64 expected) : m_planner(ShortSum(title.toUtf8())), m_expected(expected) {}

    void Add(std::optional<CalendarEntry> entry)
    {
        longwork::Reached(m_done++, m_expected);
        if (!entry) return;
        const int number = ++m_equals[entry->uid];
        if (number > 1) entry->uid += u'.' + QString::number(number);
        entry->uid += u'.' + m_planner + u"@orrelin"_s;
        m_entries.push_back(std::move(*entry));
    }
    const std::vector<CalendarEntry>& All() const { return m_entries; }

private:
    QString m_planner;
    qint64 m_expected, m_done = 0;
    QHash<QString, int> m_equals;
    std::vector<CalendarEntry> m_entries;
};

std::vector<std::optional<CalendarRule>> RulesOf(Extract& extract)
{
    const longwork::Part part(0, 0.5);
    return TakeRulesOutOf(extract);
}
} // namespace

QByteArray WriteICalendar(const Extract& extract, const AddPicture&)
{
    Extract rest = extract;
    const auto rules = RulesOf(rest);
    const longwork::Part part(rest.events.empty() ? 0 : 0.5, 1);
    Entries entries(rest.title, std::ssize(rest.notes) + std::ssize(rest.alarms) + std::ssize(rest.events));
    for (const ExtractedNote& note : rest.notes)
        entries.Add(EntryOf(note));
    for (const ExtractedAlarm& alarm : rest.alarms)
        entries.Add(EntryOf(alarm));
    for (size_t i = 0; i < rules.size(); ++i)
        entries.Add(rules[i] ? std::optional(EntryOf(rest.events[i], *rules[i])) : std::nullopt);
    ExportStamps stamps(rest.title);
    const QByteArray file = ICalendarFile(rest.title, entries.All(), stamps);
    stamps.Save();
    return file;
}
