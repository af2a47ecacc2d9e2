// The lock of a day in a workgroup's planner: taken before typing, given up with what was typed, by hand or when nobody
// has shown a sign of life for a while.
#pragma once

#include "calendar/lockedday.h"

#include <QString>

class Cells;
class DayRecord;
class DayViewPort;
struct NetworkControls;
class QMTDB;
class Refresh;
class RichTextBox;
class UnsavedNotes;
struct RunTimeError;
struct Sidebar;

class DayLock final : public LockedDay
{
public:
    DayLock(Cells& cells, const Sidebar& sidebar, const NetworkControls& network, DayRecord& record,
            DayViewPort& dayView, Refresh& refresh, QMTDB& notes)
        : m_cells(cells), m_sidebar(sidebar), m_network(network), m_record(record), m_dayView(dayView),
          m_refresh(refresh), m_notes(notes)
    {
    }

    void subLockDay(); // locks the current day; where one is locked, commits it
    void tmUnLock_Timer();
    void AddTyped(UnsavedNotes& typed) const; // what stands in the locked day and is not in the planner yet
    bool Commit() override;
    void LeaveBehind() override;

private:
    void AskForCell();
    bool Take(int cell);
    void Lock();
    bool Unlock();
    int HeldCell() const;
    bool StoreCell(int cell);
    bool Store(RichTextBox& box);
    bool StoreOverOthers(RichTextBox& box, const RunTimeError& error);
    void ShowUnlocked(int cell);
    void ShowFree(const QString& reason);
    void KeepLocked(const RunTimeError& error);

    Cells& m_cells;
    const Sidebar& m_sidebar;
    const NetworkControls& m_network;
    DayRecord& m_record;
    DayViewPort& m_dayView;
    Refresh& m_refresh;
    QMTDB& m_notes;
    bool m_isUnlocking = false;
};
