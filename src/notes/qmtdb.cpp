#include "notes/qmtdb.h"

#include "hall/cells.h"
#include "hall/foot.h"
#include "notes/alarmmarks.h"
#include "notes/journal.h"
#include "plannerfile/backups.h"
#include "plannerfile/schema.h"
#include "platform/desktop/mousepointer.h"
#include "platform/engine/engineerrors.h"
#include "platform/runtime/errortail.h"
#include "state/calendarstate.h"
#include "state/plannerstate.h"
#include "state/viewmode.h"
#include "state/workgroupstate.h"

#include <QScopedValueRollback>

namespace {
constexpr QLatin1StringView UpdateTail(" in QMTDB.BAS, subUpdateQMTRecord");

// An emptied day first gets a blank note, then its record is deleted.
void StoreNote(Recordset& records, const QString& key, const UnsavedNote& note)
{
    QByteArray text = note.rtf;
    records.Seek(schema::Equal, key);
    if (records.NoMatch()) {
        records.AddNew();
    } else {
        records.Edit();
        text = note.Over(records.Fields(schema::TextField).toByteArray());
    }
    records.SetField(schema::DateField, key);
    records.SetField(schema::TextField, text.isEmpty() ? schema::EmptiedNote : text);
    records.Update();
    if (!text.isEmpty()) return;
    records.Seek(schema::Equal, key);
    records.Delete();
}

// Wraps a step of a save: an error's text goes into reason.
template <typename Step>
auto Noting(QString& reason, Step step)
{
    return [&reason, step = std::move(step)] {
        try {
            step();
        } catch (const RunTimeError& error) {
            reason = error.Description;
            throw;
        }
    };
}
} // namespace

void QMTDB::ReadNote(int cell)
{
    RichTextBox& box = m_cells.tbDay(cell);
    box.SetLocked(true);
    box.setVisible(true);
    // After a failed open the tables are still those of the former planner, so typed text would have no place. The same
    // holds for a cell without a number.
    if (!HasPlanner() || m_cells.KeyOf(cell).isEmpty())
        throw RunTimeError{errors::ObjectNotSet, u"Object variable not set"_s};
    const QString& key = m_cells.KeyOf(cell);
    const auto unsaved = m_unsaved.Find(g_sNotesFile, key);
    if (!unsaved) g_rsQMT.Seek(schema::Equal, key);
    if (unsaved || !g_rsQMT.NoMatch()) {
        ShowNote(cell, key, unsaved ? unsaved->rtf : g_rsQMT.Fields(schema::TextField).toByteArray());
        if (unsaved) box.SetModified(true);
    } else if (!Held(cell).rtf) {
        ShowNote(cell, key, {});
    }
    box.SetLocked(g_bDBShared);
}

void QMTDB::ShowNote(int cell, const QString& key, const QByteArray& rtf)
{
    RichTextBox& box = m_cells.tbDay(cell);
    HeldNote& held = Held(cell);
    // Unchanged text keeps the caret and the undo stack. Another day's text must be set even if its bytes are equal,
    // since undo must not bring back the former day's.
    if (held.key != key || !box.Holds(rtf)) {
        const int caret = held.key == key ? box.SelStart() : 0;
        box.SetTextRTF(rtf);
        if (m_cells.CellWithCaret() == cell) box.SetSelStart(caret);
    }
    held = {key, rtf};
}

void QMTDB::ReadCells(QLatin1StringView literal)
{
    const ErrorTail tail(literal);
    const ReadTransaction reading(g_dbPlanner);
    Expect(reading);
    for (const int cell : Shown()) {
        if (!tail([&] { ReadNote(cell); })) ShowUnread(cell);
        tail([&] { subShowAlarmIcon(m_cells, m_cells.KeyOf(cell), cell); });
    }
}

void QMTDB::Expect(const ReadTransaction& reading) const
{
    const QVariantList days = m_cells.Keys(Shown());
    reading.Expect(g_rsQMT, days);
    reading.Expect(g_rsAlarm, days);
}

void QMTDB::ReadDay(const QString& key)
{
    const ErrorTail tail(" in QMTDB.BAS, subSeekQMTDatabase"_L1);
    const QScopedValueRollback noSignOfLife(g_lUnlockTicks); // changes by others must not keep an idle lock
    const ReadTransaction reading(key.isEmpty() ? g_dbPlanner : Database()); // one day needs no transaction
    Expect(reading);
    for (const int cell : Shown()) {
        tail([&] {
            if (!key.isEmpty() && m_cells.KeyOf(cell) != key) return;
            const bool isEdited = g_bDBShared ? IsMarked(cell) : NeedsSaving(cell);
            if (!isEdited) LetGo(cell);
            if (!isEdited) tail([&] { ReadNote(cell); });
            UnloadAlarmIcon(m_cells, cell);
            subShowAlarmIcon(m_cells, m_cells.KeyOf(cell), cell);
        });
    }
    if (key.isEmpty()) m_foot.ShowMonth();
}

void QMTDB::subSeekQMTDatabase()
{
    const QLatin1StringView literal(" in QMTDB.BAS, subSeekQMTDatabase");
    // The day view mode has no cell.
    if (m_viewMode.GetViewMode() != ViewMode::Day) ReadCells(literal);
    const bool isConnected = ErrorTail{literal}([] { DBEngine::Idle(DBEngine::dbFreeLocks); });
    g_iCurrentPanel = 0;
    m_foot.ShowConnection(isConnected);
    SetMousePointer(mousepointer::Default);
}

bool QMTDB::NeedsSaving(int cell) const
{
    const auto& held = Held(cell).rtf;
    if (!held) return false;
    const RichTextBox& box = m_cells.tbDay(cell);
    if (box.Modified()) return true;
    // A cell that was only entered holds the bytes that were read. Writing them again could undo another user's change.
    const bool marked = cell > 0 && IsMarked(cell);
    return marked && box.TextRTF() != *held;
}

bool QMTDB::HasChanges() const
{
    for (const int cell : Shown()) {
        if (m_cells.tbDay.Exists(cell) && NeedsSaving(cell)) return true;
    }
    return !m_unsaved.NotesOf(g_sNotesFile).isEmpty();
}

void QMTDB::TakeNote(int cell)
{
    RichTextBox& box = m_cells.tbDay(cell);
    box.CommitPreedit();
    if (NeedsSaving(cell)) {
        const QString& key = m_cells.KeyOf(cell);
        const QByteArray rtf = box.IsEmpty() ? QByteArray() : box.TextRTF();
        m_unsaved.Keep(g_sNotesFile, key, {rtf, Held(cell).rtf, {}});
        box.MarkSaved(rtf);
        Held(cell) = {key, rtf};
    }
    if (cell > 0) Mark(cell, false);
}

void QMTDB::WriteNotes(const QString& planner, Database& database, Recordset& records)
{
    const auto notes = m_unsaved.NotesOf(planner);
    if (notes.isEmpty()) return;
    if (planner == g_sNotesFile) BackUpBeforeSave();
    const ErrorTail tail(UpdateTail, {engineerrors::CouldNotSave});
    QString reason;
    tail(Noting(reason, [&] {
        QStringList written;
        // One commit for all, since the cost of a save is the wait for the disk.
        WriteTransaction writing(database);
        for (auto note = notes.cbegin(); note != notes.cend(); ++note) {
            if (tail(Noting(reason, [&] { StoreNote(records, note.key(), *note); }))) written.append(note.key());
        }
        writing.Commit();
        for (const QString& key : written)
            m_unsaved.Forget(planner, key);
    }));
    m_reasons[planner] = reason;
    FollowUnsaved();
}

// The foot shows notes that failed to be written. Notes set aside by New were not tried.
void QMTDB::FollowUnsaved()
{
    const QStringList waiting = m_unsaved.Planners();
    m_reasons.removeIf([&](const auto& reason) { return reason->isEmpty() || !waiting.contains(reason.key()); });
    m_foot.SetNotSaved(WhyUnsaved().join(u' '));
    m_journal.Follow();
    m_onWritten();
}

void QMTDB::ForgetUnsaved(const QStringList& planners)
{
    for (const QString& planner : planners)
        m_unsaved.Forget(planner);
    FollowUnsaved();
}

void QMTDB::ForgetDay(const QString& key)
{
    m_unsaved.Forget(g_sNotesFile, key);
    FollowUnsaved();
}

void QMTDB::LeaveBehind(const QString& key, const UnsavedNote& note)
{
    UnsavedNotes left;
    left.Keep(g_sNotesFile, key, note);
    m_unsaved.Forget(g_sNotesFile, key);
    QString reason;
    if (!Journal::LeaveBehind(left, reason)) {
        m_unsaved.Keep(g_sNotesFile, key, note);
        m_reasons[g_sNotesFile] = reason;
    }
    FollowUnsaved();
}

UnsavedNotes QMTDB::Typed() const
{
    UnsavedNotes typed = m_unsaved;
    if (!HasPlanner() || g_bDBShared) return typed;
    for (const int cell : Shown()) {
        if (!m_cells.tbDay.Exists(cell) || !NeedsSaving(cell)) continue;
        const RichTextBox& box = m_cells.tbDay(cell);
        const HeldNote& held = Held(cell);
        typed.Keep(g_sNotesFile, held.key, {box.IsEmpty() ? QByteArray() : box.TextRTF(), held.rtf, {}});
    }
    return typed;
}

std::optional<QByteArray> QMTDB::HeldText(const QString& key) const
{
    for (const int cell : Shown()) {
        const HeldNote& held = Held(cell);
        if (held.key == key) return held.rtf;
    }
    return {};
}

QByteArray QMTDB::NoteOver(const QString& key, const QByteArray& stored) const
{
    const auto unsaved = m_unsaved.Find(g_sNotesFile, key);
    return unsaved ? unsaved->Over(stored) : stored;
}

void QMTDB::WriteUnsaved()
{
    const ErrorTail tail(UpdateTail);
    for (const QString& planner : m_unsaved.Planners()) {
        if (planner == g_sNotesFile) {
            WriteNotes(planner, g_dbPlanner, g_rsQMT);
            continue;
        }
        QString reason;
        tail(Noting(reason, [&] {
            Database database = DBEngine::OpenDatabase(planner);
            Recordset records = schema::OpenNotes(database);
            WriteNotes(planner, database, records);
        }));
        if (!reason.isEmpty()) m_reasons[planner] = reason;
    }
    FollowUnsaved();
}

void QMTDB::subUpdateQMTRecord(int iCell)
{
    // In a workgroup's planner only the lock's commit writes a day.
    if (!HasPlanner() || g_bDBShared) return;
    TakeNote(iCell);
    WriteNotes(g_sNotesFile, g_dbPlanner, g_rsQMT);
}

void QMTDB::mnuSave_Click()
{
    const ErrorTail tail(" in MainForm, mnuSave_Click"_L1);
    tail([&] { subUpdateQMTDatabase(); });
    tail([&] { subSeekQMTDatabase(); });
}

void QMTDB::PutNote(const QString& key, const UnsavedNote& note)
{
    if (!HasPlanner()) return;
    m_unsaved.Keep(g_sNotesFile, key, note);
    if (!g_bDBShared) WriteNotes(g_sNotesFile, g_dbPlanner, g_rsQMT);
}

void QMTDB::subUpdateQMTDatabase()
{
    const ErrorTail tail(UpdateTail);
    const bool saves = HasPlanner() && !g_bDBShared;
    for (const int cell : Shown()) {
        tail([&] {
            if (saves) TakeNote(cell);
            LetGo(cell);
        });
    }
    if (saves) WriteNotes(g_sNotesFile, g_dbPlanner, g_rsQMT);
}

// A failed read keeps the day's last text on the screen, but never another day's.
void QMTDB::ShowUnread(int cell)
{
    if (Held(cell).key != m_cells.KeyOf(cell)) EmptyCell(cell);
}

void QMTDB::EmptyCell(int cell)
{
    if (!m_cells.tbDay.Exists(cell)) return;
    Held(cell) = {};
    m_cells.tbDay(cell).SetTextRTF({});
    m_cells.tbDay(cell).SetLocked(true);
}

void QMTDB::SetAside()
{
    if (g_bDBShared) return;
    const ErrorTail tail(UpdateTail);
    for (const int cell : Shown())
        tail([&] { TakeNote(cell); });
}

void QMTDB::DropCells()
{
    for (const int cell : Shown())
        EmptyCell(cell);
    m_cells.Unmark();
    m_journal.Follow();
}
