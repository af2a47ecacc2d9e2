// The entries of an iCalendar file for a planner.
#include "exchange/exportstamps.h"
#include "exchange/icalendarnotes.h"
#include "exchange/icalendarown.h"
#include "exchange/readers.h"
#include "platform/engine/longwork.h"

#include <algorithm>
#include <map>

namespace {
QByteArray ContentOf(const CalendarPart& entry)
{
    QByteArray content = entry.kind;
    for (const CalendarProperty& property : entry.properties)
        content += '\n' + property.name + ':' + property.value;
    for (const CalendarPart& part : entry.parts)
        content += '\n' + ContentOf(part);
    return content;
}

QByteArray UidOf(const CalendarPart& entry)
{
    const QByteArray uid = entry.Value("UID");
    // A later file of the same calendar then has the same.
    return uid.isEmpty() ? "no-uid-" + ShortSum(ContentOf(entry)).toUtf8() : uid;
}

bool IsLater(const CalendarPart& one, const CalendarPart& other)
{
    const auto versionOf = [](const CalendarPart& entry) {
        const QByteArray changed = entry.Value("LAST-MODIFIED");
        return std::pair(entry.Value("SEQUENCE").toInt(), changed.isEmpty() ? entry.Value("DTSTAMP") : changed);
    };
    return versionOf(one) >= versionOf(other); // of equals the later in the file
}

// An entry with the changes of its occurrences, each in its last version.
struct CalendarFamily
{
    const CalendarPart* master = nullptr;
    std::map<QByteArray, const CalendarPart*> changes; // by the occurrence

    int Line() const { return (master ? master : changes.begin()->second)->line; }
};
using CalendarFamilies = std::map<std::pair<QByteArray, QByteArray>, CalendarFamily>; // by kind and uid

CalendarFamilies FamiliesOf(const std::vector<CalendarPart>& entries)
{
    CalendarFamilies families;
    for (const CalendarPart& entry : entries) {
        CalendarFamily& family = families[{entry.kind, UidOf(entry)}];
        const QByteArray occurrence = entry.Value("RECURRENCE-ID");
        const CalendarPart*& known = occurrence.isEmpty() ? family.master : family.changes[occurrence];
        if (!known || IsLater(entry, *known)) known = &entry;
    }
    return families;
}

struct Verdict
{
    const char* kind;
    const char* status; // null: any
    bool isTicked;
    QString remark;
};

// The first that fits.
const Verdict Verdicts[] = {{"", "CANCELLED", false, u"Cancelled: what was imported of it is taken out."_s},
                            {"VTODO", "COMPLETED", false, u"A task that is done."_s},
                            {"VTODO", nullptr, true, u"A task."_s}};

void Judge(const CalendarPart& entry, ImportedEntry& imported, QStringList& remarks)
{
    QByteArray status = entry.Value("STATUS").toUpper();
    if (status.isEmpty() && entry.Find("COMPLETED")) status = "COMPLETED";
    for (const Verdict& verdict : Verdicts) {
        if (*verdict.kind != '\0' && entry.kind != verdict.kind) continue;
        if (verdict.status && status != verdict.status) continue;
        imported.isTicked = verdict.isTicked;
        imported.isCancelled = status == "CANCELLED";
        remarks += verdict.remark;
        return;
    }
}

class CalendarImport
{
public:
    CalendarImport(const CalendarParts& parts, const ImportChoices& choices, CalendarFaults& faults)
        : m_reading{CalendarZones(choices.zone, parts.zones, m_time), m_time, choices.endlessUntil, faults},
          m_form(choices.form)
    {
        m_document.setUndoRedoEnabled(false);
        m_document.setDefaultFont(m_form.font());
    }

    void Add(const CalendarFamily& family)
    {
        if (m_room.IsFull())
            return m_reading.faults.Add(family.Line(), u"There are too many days before this entry."_s);
        std::vector<const CalendarPart*> changes;
        for (const auto& [occurrence, change] : family.changes)
            changes.push_back(change);
        auto master = family.master ? SeriesOf(*family.master, changes, m_reading) : std::nullopt;
        std::vector<std::pair<const CalendarPart*, CalendarSeries>> changed;
        for (const CalendarPart* const change : changes)
            if (auto series = SeriesOf(*change, {}, m_reading)) changed.emplace_back(change, std::move(*series));
        if (master) MoveFollowing(*master, changed);
        if (master) Write(*family.master, *master);
        for (auto& [change, series] : changed)
            Write(*change, series);
    }

    std::vector<ImportedEntry> Entries()
    {
        const auto order = [](const ImportedEntry& entry) {
            const GridDay& first = entry.notes.empty() ? entry.alarms.front().day : entry.notes.front().day;
            return std::pair(first, entry.title); // with the time
        };
        std::ranges::stable_sort(m_entries, {}, order);
        return std::move(m_entries);
    }

private:
    // The last first: each takes all that is left behind it.
    void MoveFollowing(CalendarSeries& master, std::vector<std::pair<const CalendarPart*, CalendarSeries>>& changed)
    {
        std::vector<std::pair<CalendarTime, CalendarSeries*>> moves;
        for (auto& [change, series] : changed) {
            const CalendarProperty* const occurrence = change->Find("RECURRENCE-ID");
            const auto from = m_reading.zones.TimeOf(occurrence);
            if (from && occurrence->parameters.value("RANGE").toUpper() == "THISANDFUTURE")
                moves.emplace_back(*from, &series);
        }
        std::ranges::sort(moves, std::greater(), [](const auto& move) { return move.first.wall; });
        for (const auto& [from, series] : moves)
            ::MoveFollowing(master, from, *series);
    }

    void Write(const CalendarPart& entry, CalendarSeries& series)
    {
        if (series.spans.empty()) return;
        const auto own = OwnEntryOf(entry, series);
        CalendarBody body(entry, own.has_value(), m_form, m_document, m_room);
        if (own && body.IsBlank() && own->kind != OwnKind::Alarm)
            return m_reading.faults.Add(entry.line, u"A note of pictures only, which calendars do not keep."_s);
        ImportedEntry imported;
        imported.repeats = series.repeats;
        imported.isEndless = series.isEndless;
        QStringList remarks = series.remarks;
        Judge(entry, imported, remarks);
        if (!series.start.zone->isKnown) remarks += u"Its time zone is unknown: the time is taken as it stands."_s;
        if (body.IsCut()) remarks += u"Its text is shortened."_s;
        Place(entry, series, own, body, imported, remarks);
        imported.remark = remarks.join(u' ');
        if (!imported.notes.empty() || !imported.alarms.empty()) m_entries.push_back(std::move(imported));
    }

    void Place(const CalendarPart& entry, const CalendarSeries& series, const std::optional<OwnCalendarEntry>& own,
               CalendarBody& body, ImportedEntry& imported, QStringList& remarks)
    {
        const bool isAlarm = own && own->kind == OwnKind::Alarm;
        std::vector<LocalSpan> spans, days;
        for (const CalendarSpan& span : series.spans) {
            spans.push_back(OnPersonsClock(series, span, m_reading.zones.Person()));
            days.push_back(spans.back());
            if (entry.kind == "VTODO") days.back().start = spans.back().end; // when it is due
        }
        imported.id = NewId(entry);
        imported.title = HeadOf(days.front(), body.Title());
        if (!isAlarm) imported.notes = NotesOf(days, body, m_room, remarks);
        const CalendarPart* const alarms = isAlarm ? &AtStart() : &entry;
        imported.alarms = AlarmsOf(*alarms, spans, body, m_room, m_reading, remarks);
        if (own) Restore(*own, body, imported);
    }

    // Some calendars lose the alarms of what they export, but an alarm of our own is nothing else.
    static const CalendarPart& AtStart()
    {
        static const CalendarPart part{{}, 0, {}, {}, {{"VALARM", 0, {}, {{0, "TRIGGER", {}, "PT0S"}}, {}}}};
        return part;
    }

    static void Restore(const OwnCalendarEntry& own, const CalendarBody& body, ImportedEntry& imported)
    {
        for (ExtractedNote& note : imported.notes) {
            if (own.kind == OwnKind::Memo) note = {{note.day.year, note.day.month, 0}, own.memo, note.rtf};
            if (own.kind == OwnKind::Note && own.day.year != 0) note.day = own.day;
        }
        for (ExtractedAlarm& alarm : imported.alarms) {
            if (own.day.year != 0) alarm.day = own.day;
            if (body.IsBlank()) alarm.rtf.clear();
        }
    }

    QString NewId(const CalendarPart& entry)
    {
        QString id = CalendarText(UidOf(entry) + ' ' + entry.Value("RECURRENCE-ID")).simplified();
        while (id.isEmpty() || m_ids.contains(id))
            id += u' ' + QString::fromLatin1(entry.kind);
        m_ids += id;
        return id;
    }

    RuleTime m_time;
    CalendarReading m_reading;
    CalendarRoom m_room;
    QTextCharFormat m_form;
    QTextDocument m_document;
    QSet<QString> m_ids;
    std::vector<ImportedEntry> m_entries;
};

std::vector<ImportedEntry> EntriesOf(const CalendarParts& parts, const ImportChoices& choices, CalendarFaults& faults)
{
    CalendarImport import(parts, choices, faults);
    const CalendarFamilies families = FamiliesOf(parts.entries);
    qint64 done = 0;
    for (const auto& [uid, family] : families) {
        longwork::Reached(done++, std::ssize(families));
        import.Add(family);
    }
    return import.Entries();
}

CalendarParts PartsOf(const QByteArray& file, CalendarFaults& faults)
{
    const longwork::Part part(0, 0.2);
    return ReadCalendarParts(file, faults);
}
} // namespace

ImportedFile ReadICalendar(const QByteArray& file, const ImportChoices& choices)
{
    ImportedFile imported;
    CalendarFaults faults;
    const CalendarParts parts = PartsOf(file, faults);
    const longwork::Part part(0.2, 1);
    imported.refusal = parts.refusal;
    if (!imported.refusal.isEmpty()) return imported;
    imported.entries = EntriesOf(parts, choices, faults);
    imported.leftOut = faults.All();
    if (!imported.entries.empty()) return imported;
    imported.refusal = u"The file has no entry with a date that can be read."_s;
    if (!imported.leftOut.isEmpty()) imported.refusal += u' ' + imported.leftOut.first();
    return imported;
}
