// Opens planners: by the file dialog, from the recent list, at start. Brings older files up to date on the way.
#pragma once

#include <QVariant>

#include <functional>

struct BottomPanel;
class Cells;
class CommonDialog;
class LockedDay;
class NetworkMode;
class QMTDB;
class RecentList;
class Recovery;
struct RunTimeError;

class Opening
{
public:
    Opening(Cells& cells, const BottomPanel& bottom, CommonDialog& dialog, QMTDB& notes, NetworkMode& networkMode,
            RecentList& recentList, Recovery& recovery)
        : m_cells(cells), m_bottom(bottom), m_dialog(dialog), m_notes(notes), m_networkMode(networkMode),
          m_recentList(recentList), m_recovery(recovery)
    {
    }

    void SetLockedDay(LockedDay& lockedDay) { m_lockedDay = &lockedDay; }
    void LeaveLockedDay(); // before its cell stands for anything else: what was typed waits for the next opening

    void subOpenPlanner();
    void subAutoload(); // the planner of the start-up options, if one is set

    // Opens g_sDBPath. The argument goes straight into the engine's exclusive argument, so true means a personal
    // planner. On return g_sDBPath is empty if the open failed.
    void subOpenDBNoDlg(bool bShared);

    void AskHowAndOpen(); // OpenAsForm for g_sDBPath, then the open that was asked for

    void ShowPlannerOpen();                         // title bar, month's title, pointer; no cell is current
    void ShowOpenFailed(const RunTimeError& error); // says so; no planner is open then

private:
    bool OpenNotes(bool exclusive, const QString& foot);
    void TakeChange(const QString& table, const QVariant& key);
    void GiveUp(const QString& reason);
    static bool Upgrade(const std::function<void()>& step); // false: it is said and logged
    bool OpenAlarms();
    bool OpenRecursions();
    void subAddAlarmTable();
    void subAddRecursionTable();

    Cells& m_cells;
    const BottomPanel& m_bottom;
    CommonDialog& m_dialog;
    QMTDB& m_notes;
    NetworkMode& m_networkMode;
    RecentList& m_recentList;
    Recovery& m_recovery;
    LockedDay* m_lockedDay = nullptr;
};
