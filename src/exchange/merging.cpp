#include "exchange/merging.h"

#include "alarms/alarmrecords.h"
#include "exchange/changednote.h"
#include "exchange/importpieces.h"
#include "plannerfile/schema.h"
#include "platform/engine/engineerrors.h"
#include "platform/engine/longwork.h"

#include <algorithm>
#include <functional>
#include <list>
#include <optional>
#include <span>

namespace {
using Kind = ImportedPiece::Kind;

// An entry on its way into the planner.
struct Merged
{
    QString id;
    ImportedPieces before;       // what former imports have written
    ImportedPieces standing;     // what stands now
    int additions = 0, over = 0; // pieces
    bool isChanged = false, isRefused = false;
};

struct Change
{
    Merged* merged;
    ImportedPiece piece;
    std::optional<QByteArray> rtf; // to add; nothing: to take out
};
using Changes = std::vector<Change>;

void Settle(const Change& change, bool isWritten)
{
    // What a person or another entry has written is not the entry's own, so it is never taken out for it.
    if (change.rtf && isWritten) change.merged->standing.insert(change.piece);
    change.merged->isChanged = change.merged->isChanged || isWritten;
}

void Refuse(const Change& change)
{
    if (!change.rtf) change.merged->standing.insert(change.piece);
    change.merged->isRefused = true;
}

// Texts of the whole day come first, then those with a time.
QString TimeOf(const Change& change)
{
    const QString start = change.piece.text.left(5);
    return QTime::fromString(start, u"HH:mm"_s).isValid() ? start : QString();
}

QDate DateOf(const QString& key)
{
    const GridDay day = DayOfKey(key).value_or(GridDay());
    return {day.year, day.month, day.day};
}

bool IsOfOthers(int error)
{
    return error == engineerrors::RecordLocked || error == engineerrors::DataChanged;
}

class Merger
{
public:
    Merger(const Database& planner, const QDateTime& now, const QString& tune)
        : m_notes(schema::OpenNotes(planner)), m_alarms(schema::OpenAlarms(planner)),
          m_events(schema::OpenRecursions(planner)), m_memory(planner), m_now(now), m_tune(tune)
    {
    }

    MergeReport Merge(const std::vector<ImportedEntry>& entries);

private:
    void Plan(const ImportedEntry& entry, Merged& merged);
    void Write(Kind kind, const QString& key, Changes& changes);
    template <typename Step>
    void Try(const QString& key, std::span<const Change> changes, Step step);
    void WriteNote(const QString& key, Changes& changes);
    void StoreNote(const QString& key, bool isNew, const QByteArray& rtf);
    void WriteAlarm(const Change& change);
    void WriteEvent(const Change& change);
    void AddEvent(const QString& first, const QString& last, const QString& frequency, const QByteArray& rtf);
    void Report(const Merged& merged);

    Recordset m_notes, m_alarms, m_events;
    ImportMemory m_memory;
    QDateTime m_now;
    QString m_tune;
    std::map<std::pair<Kind, QString>, Changes> m_changes; // by kind and day
    MergeReport m_report;
};

// What this import does not speak of: the alarms that the person has not ticked, and the days of an endless rule behind
// the last one that the person wants now.
bool IsLeftAlone(const ImportedPiece& piece, const ImportedEntry& entry)
{
    if (piece.kind == Kind::Alarm && !entry.takesAlarms) return true;
    const QString last = piece.kind == Kind::Event ? piece.detail.section(u' ', 1) : piece.key;
    return entry.isEndless && !entry.notes.empty() && DayOfKey(last) > entry.notes.back().day;
}

// Itself, or an event that reaches further.
bool Stands(const ImportedPiece& wanted, const ImportedPieces& standing)
{
    if (wanted.kind != Kind::Event) return standing.contains(wanted);
    return std::ranges::any_of(standing, [&wanted](const ImportedPiece& piece) {
        return piece.kind == Kind::Event && piece.key == wanted.key && piece.text == wanted.text;
    });
}

void Merger::Plan(const ImportedEntry& entry, Merged& merged)
{
    longwork::Goes();
    merged.id = entry.id;
    if (!merged.id.isEmpty()) merged.before = m_memory.Of(merged.id);
    const auto wanted = PiecesOf(entry);
    for (const ImportedPiece& piece : merged.before) {
        if (wanted.contains(piece) || IsLeftAlone(piece, entry))
            merged.standing.insert(piece);
        else
            m_changes[{piece.kind, piece.key}].push_back({&merged, piece, {}});
    }
    for (const auto& [piece, rtf] : wanted) {
        if (Stands(piece, merged.standing)) continue;
        m_changes[{piece.kind, piece.key}].push_back({&merged, piece, rtf});
        ++merged.additions;
    }
}

// The long texts look for their lines first, or a short one would take one of theirs. What is not found looks again: a
// recurring event may have stood in its middle. Returns which changes have changed the note.
std::vector<bool> Apply(const Changes& changes, ChangedNote& note)
{
    std::vector<bool> isDone(changes.size());
    std::vector<size_t> additions;
    for (size_t i = 0; i < changes.size(); ++i) {
        if (changes[i].rtf)
            additions.push_back(i);
        else
            isDone[i] = note.TakeOut(changes[i].piece.text);
    }
    const auto isThere = [&](size_t i) { return note.Finds(changes[i].piece.text, *changes[i].rtf); };
    std::vector<size_t> longestFirst = additions;
    std::ranges::stable_sort(longestFirst, std::greater(), [&](size_t i) { return changes[i].piece.text.size(); });
    for (const size_t i : longestFirst)
        isDone[i] = !isThere(i);
    for (const size_t i : additions) {
        isDone[i] = isDone[i] && !isThere(i);
        if (isDone[i]) note.Add(*changes[i].rtf);
    }
    return isDone;
}

void Merger::WriteNote(const QString& key, Changes& changes)
{
    std::ranges::stable_sort(changes, {}, TimeOf);
    m_notes.Seek(schema::Equal, key);
    const bool isNew = m_notes.NoMatch();
    ChangedNote note(isNew ? QByteArray() : m_notes.Fields(schema::TextField).toByteArray());
    const std::vector<bool> written = Apply(changes, note);
    if (std::ranges::find(written, true) != written.end()) StoreNote(key, isNew, note.Rtf());
    for (size_t i = 0; i < changes.size(); ++i)
        Settle(changes[i], written[i]);
}

// An emptied day has no record.
void Merger::StoreNote(const QString& key, bool isNew, const QByteArray& rtf)
{
    if (rtf.isEmpty()) return m_notes.Delete();
    if (isNew)
        m_notes.AddNew();
    else
        m_notes.Edit();
    m_notes.SetField(schema::DateField, key);
    m_notes.SetField(schema::TextField, rtf);
    m_notes.Update();
}

// Goes to the day's record that is the piece. False if there is none.
template <typename IsIt>
bool GoTo(Recordset& records, const ImportedPiece& piece, const QString& keyField, IsIt isIt)
{
    records.Seek(schema::Equal, piece.key);
    bool isOfDay = !records.NoMatch();
    while (isOfDay && !isIt()) {
        records.MoveNext();
        isOfDay = !records.EOF_() && records.Fields(keyField).toString() == piece.key;
    }
    return isOfDay;
}

void Merger::WriteAlarm(const Change& change)
{
    const ImportedPiece& piece = change.piece;
    const bool stands = GoTo(m_alarms, piece, u"Alarm Date"_s, [&] {
        const Alarm alarm = CurrentAlarm(m_alarms);
        return alarm.time.rightJustified(5, u'0') == piece.detail && LinesOfNote(alarm.note) == piece.text;
    });
    const bool isOver = QDateTime(DateOf(piece.key), QTime::fromString(piece.detail, u"HH:mm"_s)) < m_now;
    if (stands && !change.rtf) m_alarms.Delete();
    if (!stands && change.rtf && isOver) { // it would never ring
        ++change.merged->over;
        return;
    }
    if (!stands && change.rtf) subAddAlarmRecord(m_alarms, {piece.key, piece.detail, *change.rtf, m_tune, false});
    Settle(change, stands != change.rtf.has_value());
}

void Merger::WriteEvent(const Change& change)
{
    const ImportedPiece& piece = change.piece;
    const QString frequency = piece.detail.section(u' ', 0, 0), last = piece.detail.section(u' ', 1);
    const bool stands = GoTo(m_events, piece, u"Start Date"_s, [&] {
        return m_events.Fields(u"Frequency"_s) == frequency && m_events.Fields(u"End Date"_s) == last &&
               LinesOfNote(m_events.Fields(u"Recursion Text"_s).toByteArray()) == piece.text;
    });
    if (stands && !change.rtf) m_events.Delete();
    if (!stands && change.rtf) AddEvent(piece.key, last, frequency, *change.rtf);
    Settle(change, stands != change.rtf.has_value());
}

void Merger::AddEvent(const QString& first, const QString& last, const QString& frequency, const QByteArray& rtf)
{
    m_events.AddNew();
    m_events.SetField(u"Start Date"_s, first);
    m_events.SetField(u"End Date"_s, last);
    m_events.SetField(u"Frequency"_s, frequency);
    m_events.SetField(u"Recursion Text"_s, rtf);
    m_events.Update();
}

template <typename Step>
void Merger::Try(const QString& key, std::span<const Change> changes, Step step)
{
    try {
        step();
    } catch (const RunTimeError& error) {
        if (!IsOfOthers(error.Number)) throw;
        if (!m_report.refusedDays.contains(key)) m_report.refusedDays += key;
        std::ranges::for_each(changes, Refuse);
    }
}

void Merger::Write(Kind kind, const QString& key, Changes& changes)
{
    if (kind == Kind::Note) return Try(key, changes, [&] { WriteNote(key, changes); });
    for (const Change& change : changes)
        Try(key, {&change, 1}, [&] { kind == Kind::Alarm ? WriteAlarm(change) : WriteEvent(change); });
}

void Merger::Report(const Merged& merged)
{
    if (!merged.id.isEmpty() && merged.standing != merged.before) m_memory.Keep(merged.id, merged.standing);
    if (merged.isChanged)
        ++(merged.before.empty() ? m_report.added : m_report.changed);
    else if (merged.standing.empty() && merged.additions == merged.over)
        m_report.over += merged.over > 0; // else nothing was wanted, and nothing was there
    else if (!merged.isRefused)
        ++m_report.present;
}

MergeReport Merger::Merge(const std::vector<ImportedEntry>& entries)
{
    std::list<Merged> all; // the changes refer to them
    for (const ImportedEntry& entry : entries)
        Plan(entry, all.emplace_back());
    qint64 done = 0;
    for (auto& [place, changes] : m_changes) {
        longwork::Reached(done++, std::ssize(m_changes));
        Write(place.first, place.second, changes);
    }
    for (const Merged& merged : all) {
        longwork::Goes();
        Report(merged);
    }
    std::ranges::sort(m_report.refusedDays, {}, [](const QString& key) { return DayOfKey(key).value_or(GridDay()); });
    return m_report;
}
} // namespace

MergeReport MergeInto(const Database& planner, const std::vector<ImportedEntry>& entries, const QDateTime& now,
                      const QString& tune)
{
    Merger merger(planner, now, tune); // before the transaction: a server ends one in which a table may not be read
    WriteTransaction writing(planner);
    const MergeReport report = merger.Merge(entries);
    writing.Commit();
    return report;
}
