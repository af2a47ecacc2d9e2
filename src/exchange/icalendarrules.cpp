#include "exchange/icalendarrules.h"

#include "platform/engine/longwork.h"
#include "platform/richtext/rtfreader.h"
#include "platform/richtext/rtfwriter.h"

#include <QStringList>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <map>
#include <numeric>

namespace {
struct Unit
{
    qint64 (*distance)(const QDate& from, const QDate& to); // rounded
    QDate (*later)(const QDate& from, qint64 distance);     // cut to the month's length
};

// By Frequency.
constexpr Unit Units[] = {
    {[](const QDate& from, const QDate& to) { return from.daysTo(to); },
     [](const QDate& from, qint64 days) { return from.addDays(days); }},
    {[](const QDate& from, const QDate& to) { return from.daysTo(to) / 7; },
     [](const QDate& from, qint64 weeks) { return from.addDays(7 * weeks); }},
    {[](const QDate& from, const QDate& to) { return 12LL * (to.year() - from.year()) + to.month() - from.month(); },
     [](const QDate& from, qint64 months) { return from.addMonths(static_cast<int>(months)); }},
    {[](const QDate& from, const QDate& to) -> qint64 { return to.year() - from.year(); },
     [](const QDate& from, qint64 years) { return from.addYears(static_cast<int>(years)); }},
};

constexpr qint64 MostSteps = 1000; // other programs count in small numbers

// The rule with the longest step that has all dates, if it has few others.
std::optional<CalendarRule> RuleOf(Frequency frequency, const QList<QDate>& dates)
{
    if (dates.size() < 2 || dates.contains(QDate())) return {};
    const auto& [distance, later] = Units[static_cast<int>(frequency)];
    const bool keepsDay = frequency == Frequency::Monthly || frequency == Frequency::Yearly;
    const QDate first = dates.first();
    qint64 step = 0;
    for (const QDate& date : dates)
        step = std::gcd(step, distance(first, date));
    if (step == 0 || step > MostSteps) return {};
    CalendarRule rule{frequency, static_cast<int>(step), first, dates.last(), {}};
    auto next = dates.begin();
    for (qint64 steps = 0; next != dates.end(); steps += step) {
        const QDate date = later(first, steps);
        if (date > *next || (keepsDay && date.day() != first.day())) return {};
        if (date == *next)
            ++next;
        else
            rule.missing += date;
    }
    const bool isFew = 4 * rule.missing.size() <= dates.size() + rule.missing.size();
    return isFew ? std::optional(rule) : std::nullopt;
}

// The lines that are not blank. Text is compared by whole lines: an event that a person changed in one day is a text of
// that day.
std::vector<QTextBlock> LinesOf(const QTextDocument& note)
{
    std::vector<QTextBlock> lines;
    for (QTextBlock line = note.begin(); line.isValid(); line = line.next())
        if (!line.text().trimmed().isEmpty()) lines.push_back(line);
    return lines;
}

// Each line behind a line break, with one more at the end.
QString Joined(const std::vector<QTextBlock>& lines)
{
    QString text(u'\n');
    for (const QTextBlock& line : lines)
        text += line.text().replace(QChar::Nbsp, u' ').trimmed() + u'\n';
    return text;
}

QString LinesOf(const QByteArray& rtf)
{
    QTextDocument note;
    note.setUndoRedoEnabled(false);
    ReadRtf(rtf, note);
    return Joined(LinesOf(note));
}

struct Day
{
    ExtractedNote* note;
    QString lines;     // without the events that have a rule
    QStringList taken; // these, one after the other
};
using Days = std::map<GridDay, Day>;

Days DaysOf(std::vector<ExtractedNote>& notes)
{
    Days days;
    for (ExtractedNote& note : notes) {
        longwork::Goes();
        if (note.memo == 0) days.try_emplace(note.day, Day{&note, LinesOf(note.rtf), {}});
    }
    return days;
}

std::optional<CalendarRule> TakeOut(const ExtractedEvent& event, const QString& eventLines, Days& days)
{
    if (QString(eventLines).remove(QChar::ObjectReplacementCharacter).trimmed().isEmpty()) return {}; // no text
    QList<QDate> dates;
    std::vector<Day*> found;
    const GridDay& first = event.first;
    for (GridDay day = first; day <= event.last; day = NextDate(event.frequency, first, day, 1)) {
        const auto here = days.find(day);
        if (here == days.end() || !here->second.lines.contains(eventLines)) continue;
        dates += QDate(day.year, day.month, day.day);
        found.push_back(&here->second);
    }
    auto rule = RuleOf(event.frequency, dates);
    if (!rule) return {};
    for (Day* const day : found) {
        day->lines.remove(day->lines.indexOf(eventLines), eventLines.size() - 1);
        day->taken += eventLines;
    }
    return rule;
}

// The lines of the events that are taken out, from below.
std::vector<QTextBlock> TakenLines(const QTextDocument& note, const QStringList& events)
{
    auto lines = LinesOf(note);
    QString text = Joined(lines);
    std::vector<QTextBlock> taken;
    for (const QString& eventLines : events) {
        const qsizetype at = text.indexOf(eventLines);
        // As many lines as line breaks are before it.
        const auto first = lines.begin() + text.first(at).count(u'\n');
        const auto last = first + eventLines.count(u'\n') - 1;
        taken.insert(taken.end(), first, last);
        lines.erase(first, last);
        text.remove(at, eventLines.size() - 1);
    }
    std::ranges::sort(taken, std::greater(), [](const QTextBlock& line) { return line.position(); });
    return taken;
}

void TakeOut(const Day& day)
{
    longwork::Goes();
    if (day.taken.isEmpty()) return;
    QTextDocument note;
    note.setUndoRedoEnabled(false);
    ReadRtf(day.note->rtf, note);
    QTextCursor text(&note);
    for (const QTextBlock& line : TakenLines(note, day.taken)) {
        text.setPosition(line.position() + line.length() - 1);
        text.setPosition(std::max(line.position() - 1, 0), QTextCursor::KeepAnchor);
        text.removeSelectedText();
    }
    day.note->rtf = WriteRtf(note);
}
} // namespace

std::vector<std::optional<CalendarRule>> TakeRulesOutOf(Extract& extract)
{
    const qsizetype count = std::ssize(extract.events);
    std::vector<std::optional<CalendarRule>> rules(count);
    if (count == 0) return rules;
    Days days = DaysOf(extract.notes);
    std::vector<std::pair<QString, qsizetype>> events;
    for (qsizetype i = 0; i < count; ++i)
        events.emplace_back(LinesOf(extract.events[i].rtf), i);
    // Long texts first: they may begin with the lines of a short one.
    std::ranges::stable_sort(events, std::greater(), [](const auto& event) { return event.first.size(); });
    qsizetype done = 0;
    for (const auto& [lines, i] : events) {
        longwork::Reached(done++, count);
        rules[i] = TakeOut(extract.events[i], lines, days);
    }
    for (const auto& [day, note] : days)
        TakeOut(note);
    return rules;
}
