// Opens planners: by the file dialog, from the recent list, at start. Brings older files up to date on the way.
#pragma once

#include <QVariant>

#include <functional>

class Cells;
class CommonDialog;
class Foot;
class LockedDay;
class MenuItem;
class NetworkMode;
class QMTDB;
class RecentList;
class Recovery;
class Redraw;
struct RunTimeError;

class Opening
{
public:
    Opening(Cells& cells, Foot& foot, CommonDialog& dialog, QMTDB& notes, NetworkMode& networkMode,
            RecentList& recentList, Recovery& recovery, LockedDay& lockedDay, Redraw& redraw)
        : m_cells(cells), m_foot(foot), m_dialog(dialog), m_notes(notes), m_networkMode(networkMode),
          m_recentList(recentList), m_recovery(recovery), m_lockedDay(lockedDay), m_redraw(redraw)
    {
    }

    void subOpenPlanner();
    void mnuMRU_Click(const MenuItem& entry);
    // As from the recent list. The path is that of a file, letter for letter, whether it is there or not.
    void OpenFile(const QString& path);
    void subAutoload(); // the planner of the start-up options, if one is set

    // Opens g_sDBPath. The argument goes straight into the engine's exclusive argument, so true means a personal
    // planner. On return g_sDBPath is empty if the open failed.
    void subOpenDBNoDlg(bool bShared);

    void ShowPlannerOpen();                         // title bar, month's title, pointer; no cell is current
    void ShowOpenFailed(const RunTimeError& error); // says so; no planner is open then

private:
    void OpenListed(const QString& path);
    void AskHowAndOpen(); // OpenAsForm for g_sDBPath, then the open that was asked for
    bool OpenNotes(bool exclusive, const QString& foot);
    void TakeChange(const QString& table, const QVariant& key);
    void GiveUp(const QString& reason);
    static bool Upgrade(const std::function<void()>& step); // false: it is said and logged
    bool OpenAlarms();
    bool OpenRecursions();
    void subAddAlarmTable();
    void subAddRecursionTable();

    Cells& m_cells;
    Foot& m_foot;
    CommonDialog& m_dialog;
    QMTDB& m_notes;
    NetworkMode& m_networkMode;
    RecentList& m_recentList;
    Recovery& m_recovery;
    LockedDay& m_lockedDay;
    Redraw& m_redraw;
};
