// Moves notes between the shown cells and "QMT Table". The boxes are the only working copy: saving takes out of them
// what was changed and lets go of them, reading fills them.
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

    // Fills the shown cells from the open planner and sets the month's title. A cell whose day has no record keeps
    // what it shows, unless a save has let go of it.
    void subSeekQMTDatabase();
    // The shown cells, as the read of the view and the opening fill them. A cell whose record cannot be read is logged
    // under the literal and takes no text; it keeps what it shows only if that is the same day's.
    void ReadCells(QLatin1StringView literal);

    // One day again, as another user has stored it meanwhile; its note not while it is being edited here. An empty key:
    // all that are shown.
    void ReadDay(const QString& key);

    // Writes the changed cells of a personal planner and lets go of the shown ones: none is written again before the
    // next read, which empties those whose day has no record. Until then they show what they showed, since to empty
    // them all first would cost as much as to fill them.
    void subUpdateQMTDatabase();
    void subUpdateQMTRecord(int iCell);
    void mnuSave_Click();
    // Writes a day's note that no shown cell holds; in a workgroup's planner it waits for the next look at its day, or
    // for the exit.
    void PutNote(const QString& key, const UnsavedNote& note);
    bool HasChanges() const; // of the shown cells, that a save would write

    // Keeps what the shown cells of a personal planner hold unsaved, for the exit or its next opening, unwritten.
    void SetAside();
    // Empties the shown cells and their marks without saving, and takes no text until the next read.
    void DropCells();

    // Notes of any planner that was open in this run and would not take them.
    const UnsavedNotes& Unsaved() const { return m_unsaved; }
    void WriteUnsaved();                                          // tries each of those planners again
    QStringList WhyUnsaved() const { return m_reasons.values(); } // as the last tries ended
    void ForgetUnsaved(const QStringList& planners);
    // What a day is to show that holds this in the file: what could not be stored yet comes first.
    QByteArray NoteOver(const QString& key, const QByteArray& stored) const;
    void ForgetDay(const QString& key); // it has been stored another way
    // A note of the open planner that is not to be written into it now: the next opening offers it. Where even that
    // cannot be kept it is one that would not be taken.
    void LeaveBehind(const QString& key, const UnsavedNote& note);

    // All that is not in its planner yet: Unsaved(), and what stands in the shown cells of a personal planner.
    UnsavedNotes Typed() const;
    std::optional<QByteArray> HeldText(const QString& key) const; // what the file holds for a shown day, if it was read

private:
    struct HeldNote
    {
        QString key; // of the day that the box was last filled for
        // What the file holds for that day, as it was read or last taken to be written; empty for a day without a
        // record. A cell that holds nothing is never written: an empty one would take its day's record with it.
        std::optional<QByteArray> rtf;
    };

    CellRange Shown() const { return CellsOf(m_viewMode.GetViewMode()); }
    void Expect(const ReadTransaction& reading) const; // the shown days
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
    QMap<QString, QString> m_reasons; // by planner: why its notes were not taken at the last try
    std::array<HeldNote, CellCount + 1> m_held;
};
