// The day that this user holds in a workgroup's planner, from its lock to its commit. The cell's mark, the picture of
// the lock and whether the cell takes text follow from it.
#pragma once

#include "notes/dayrecord.h"
#include "platform/runtime/runtimeerror.h"
#include "state/lockedday.h"

#include <optional>

class Cells;
struct NetworkControls;
class QMTDB;
class RichTextBox;
struct Sidebar;
class UnsavedNotes;

class HeldDay final : public LockedDay
{
public:
    HeldDay(Cells& cells, const Sidebar& sidebar, const NetworkControls& network, QMTDB& notes)
        : m_cells(cells), m_sidebar(sidebar), m_network(network), m_notes(notes)
    {
    }

    void subLockDay(); // by hand: locks the current day; where one is locked, commits it
    // For the day view, which shows what the cell shows. False: it cannot be had, and that has been said.
    bool Take(const QString& key);

    bool IsHeld() const { return m_record.IsHeld(); }
    bool Holds(const QString& key) const { return m_record.Holds(key); }
    const QByteArray& LockedText() const { return m_record.LockedText(); } // what was stored when it was taken
    bool LooksFree() const;                                                // no day is locked, as the picture tells
    // The cell in which somebody types under the lock: marked, and showing the day that is held; 0 for none. Where an
    // opening has taken the day from its cell no other cell's text may go into the record.
    int Cell() const;

    bool Commit() override;
    // The day view is open on the day. What it holds is its own affair, since it knows its day whatever the calendar
    // turns to; what was typed into a cell before would be lost by a turn, which Commit refuses then.
    void SetInWindow(bool inWindow) { m_isInWindow = inWindow; }
    // Stores this and unlocks. What kept it, if anything did; the day is held then as before.
    std::optional<RunTimeError> Store(const QByteArray& rtf);
    void HandTo(int cell);                // which is typed into from here on, and counts as typed
    void PutAside(const QByteArray& rtf); // lets go; this waits for the next look at its day, or for the exit
    void GiveUp();                        // lets go, the file is as it was
    void LeaveBehind() override;
    void Close() { m_record.Close(); } // before the planner is closed

    void AddTyped(UnsavedNotes& typed) const; // what stands in the cell and is not in the planner yet

    // Says that this cell's day is locked, and puts the focus back there. 340 for a cell that is not loaded.
    void KeepInPlace(int cell, const QString& isLocked = u" is locked, please unlock first."_s) const;

private:
    bool Take(const QString& key, QLatin1StringView literal, RichTextBox* shown);
    void Lock(int cell);
    bool Unlock();
    bool StoreCell(int cell);
    bool StoreOverOthers(int cell, const RunTimeError& error);
    void KeepLocked(const RunTimeError& error) const;
    void ShowHeld(int cell);
    void ShowFree();
    void LetGo();
    void AskForCell() const;
    void LeaveCell() const;
    void StartUnlockTimer() const;

    Cells& m_cells;
    const Sidebar& m_sidebar;
    const NetworkControls& m_network;
    QMTDB& m_notes;
    DayRecord m_record;
    std::optional<QByteArray> m_storing; // while the record takes it, and no box may hold it as typed
    bool m_isInWindow = false;
    bool m_isUnlocking = false;
};
