// The day that this user holds in a workgroup's planner, from lock to commit. It decides the cell's mark, the lock
// picture and whether the cell takes text.
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

    void subLockDay(); // by hand: locks the current day, or commits the locked one
    // For the day view, which shows the cell's text. False after a message: the lock cannot be had.
    bool Take(const QString& key);

    bool IsHeld() const { return m_record.IsHeld(); }
    bool Holds(const QString& key) const { return m_record.Holds(key); }
    const QByteArray& LockedText() const { return m_record.LockedText(); } // the stored text when it was locked
    bool LooksFree() const;                                                // the lock picture shows no locked day
    // The marked cell that shows the held day; 0 for none. After an opening has cleared the cells, no cell's text may
    // go into the record.
    int Cell() const;

    bool Commit() override;
    // The day view is open on the day. It knows its day itself, so a turn is harmless to its text. A cell's text would
    // be lost by a turn, which Commit then refuses.
    void SetInWindow(bool inWindow) { m_isInWindow = inWindow; }
    // Stores this and unlocks. On an error, which is returned, the day stays held.
    std::optional<RunTimeError> Store(const QByteArray& rtf);
    void HandTo(int cell);                // the cell goes on with the edit and counts as typed
    void PutAside(const QByteArray& rtf); // unlocks; the text waits among the unsaved notes
    void GiveUp();                        // unlocks and stores nothing
    void LeaveBehind() override;
    void Close() { m_record.Close(); } // before the planner is closed

    void AddTyped(UnsavedNotes& typed) const; // the cell's text, if it is not stored yet

    // Says that this cell's day is locked and moves the focus back to it. Raises errors::NoSuchElement if it is not
    // loaded.
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
    std::optional<QByteArray> m_storing; // set while the record is being written, when no box may show it as typed
    bool m_isInWindow = false;
    bool m_isUnlocking = false;
};
