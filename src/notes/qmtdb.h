// Moves notes between the shown cells and "QMT Table". The boxes are the only working copy: a save takes the changed
// notes out of them and releases them, a read fills them.
#pragma once

#include "notes/unsavednotes.h"
#include "state/calendarstate.h"
#include "state/plannerstate.h"
#include "state/viewmode.h"

#include <array>
#include <optional>

class Cells;
class Database;
class Foot;
class Journal;
class ReadTransaction;
class Recordset;

class QMTDB
{
public:
    QMTDB(Cells& cells, Foot& foot, const ViewMode& viewMode, Journal& journal)
        : m_cells(cells), m_foot(foot), m_viewMode(viewMode), m_journal(journal)
    {
    }

    // Fills the shown cells from the open planner and sets the month's title. A cell whose day has no record keeps its
    // text unless a save has released it.
    void subSeekQMTDatabase();
    // Reads the shown cells. An error is logged under the literal and makes the cell read-only; the cell then keeps its
    // text only if that belongs to the same day.
    void ReadCells(QLatin1StringView literal);

    // Reads a day that another user has stored, or all shown days for an empty key. A note that is being edited here
    // stays.
    void ReadDay(const QString& key);

    // Writes the changed cells of a personal planner and releases the shown ones: they are not written again before the
    // next read, which empties those without a record. Until then they keep their text, since emptying all costs as
    // much as filling them.
    void subUpdateQMTDatabase();
    void subUpdateQMTRecord(int iCell);
    void mnuSave_Click();
    // Writes the note of a day that no shown cell holds. In a workgroup's planner it waits among the unsaved notes.
    void PutNote(const QString& key, const UnsavedNote& note);
    bool HasChanges() const; // a save would write something

    // Moves the unsaved text of a personal planner's shown cells to the unsaved notes, unwritten.
    void SetAside();
    // Empties the shown cells and their marks without saving. They take no text until the next read.
    void DropCells();

    // Notes that their planners, opened in this run, did not take.
    const UnsavedNotes& Unsaved() const { return m_unsaved; }
    void WriteUnsaved();                                          // tries each planner again
    QStringList WhyUnsaved() const { return m_reasons.values(); } // the errors of the last tries
    void ForgetUnsaved(const QStringList& planners);
    // The text to show for a day with this stored text: an unsaved note comes first.
    QByteArray NoteOver(const QString& key, const QByteArray& stored) const;
    void ForgetDay(const QString& key); // the day has been stored in another way
    // Leaves a note of the open planner in a journal, for the next opening to offer. If that fails, the note becomes an
    // unsaved note.
    void LeaveBehind(const QString& key, const UnsavedNote& note);

    // Called after each try to write notes, which may be in the midst of a turn.
    void SetOnWritten(std::function<void()> onWritten) { m_onWritten = std::move(onWritten); }

    // All notes not yet in their planner: Unsaved() and the changed shown cells of a personal planner.
    UnsavedNotes Typed() const;
    std::optional<QByteArray> HeldText(const QString& key) const; // the stored text of a shown day, if it was read

private:
    struct HeldNote
    {
        QString key; // the day that the box was last filled for
        // The stored text as last read or taken for a save; empty bytes for a day without a record. Without a value the
        // cell is never written, since an empty one would delete its day's record.
        std::optional<QByteArray> rtf;
    };

    CellRange Shown() const { return CellsOf(m_viewMode.GetViewMode()); }
    void Expect(const ReadTransaction& reading) const; // announces the shown days
    void ReadNote(int cell);
    const HeldNote& Held(int cell) const { return m_held.at(static_cast<std::size_t>(cell)); }
    HeldNote& Held(int cell) { return m_held.at(static_cast<std::size_t>(cell)); }
    void ShowNote(int cell, const QString& key, const QByteArray& rtf);
    bool NeedsSaving(int cell) const;
    void TakeNote(int cell);
    void LetGo(int cell) { Held(cell).rtf.reset(); }
    void EmptyCell(int cell);
    void ShowUnread(int cell);
    void WriteNotes(const QString& planner, Database& database, Recordset& records);
    void FollowUnsaved();

    Cells& m_cells;
    Foot& m_foot;
    const ViewMode& m_viewMode;
    Journal& m_journal;
    UnsavedNotes m_unsaved;
    std::function<void()> m_onWritten = [] {};
    QMap<QString, QString> m_reasons; // by planner: why the last try failed
    std::array<HeldNote, CellCount + 1> m_held;
};
