// The lock of a day in a workgroup's planner: taken before typing, given up with what was typed, by hand or when nobody
// has shown a sign of life for a while.
#pragma once

#include "calendar/lockedday.h"

#include <QString>

class Cells;
class DayRecord;
class DayViewPort;
struct NetworkControls;
class Refresh;
class RichTextBox;
struct RunTimeError;
struct Sidebar;

class DayLock final : public LockedDay
{
public:
    DayLock(Cells& cells, const Sidebar& sidebar, const NetworkControls& network, DayRecord& record,
            DayViewPort& dayView, Refresh& refresh)
        : m_cells(cells), m_sidebar(sidebar), m_network(network), m_record(record), m_dayView(dayView),
          m_refresh(refresh)
    {
    }

    void subLockDay(); // locks the current day; where one is locked, commits it
    void tmUnLock_Timer();
    bool Commit() override;

private:
    void AskForCell();
    bool Take(int cell);
    void Lock();
    bool Unlock();
    bool Store(RichTextBox& box);
    bool StoreOverOthers(RichTextBox& box, const RunTimeError& error);
    void ShowFree(const QString& reason);
    void KeepLocked(const RunTimeError& error);

    Cells& m_cells;
    const Sidebar& m_sidebar;
    const NetworkControls& m_network;
    DayRecord& m_record;
    DayViewPort& m_dayView;
    Refresh& m_refresh;
    bool m_isUnlocking = false;
};
