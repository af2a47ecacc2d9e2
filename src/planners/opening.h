// Opens planners: from the file dialog, from the recent list, at start. Upgrades older files. Closes the open planner
// at the exit and for work on its file.
#pragma once

#include "platform/runtime/runtimeerror.h"

#include <QVariant>

#include <functional>
#include <optional>

class Cells;
class CommonDialog;
class Foot;
class HeldDay;
class MenuItem;
class NetworkMode;
class QMTDB;
class RecentList;
class Recovery;
class Redraw;

// Runs the work under the hourglass and, if it is long, a window with this title and Cancel. Returns its error, if
// there was one.
std::optional<RunTimeError> FailureOf(const QString& title, const std::function<void()>& work);

class Opening
{
public:
    Opening(Cells& cells, Foot& foot, CommonDialog& dialog, QMTDB& notes, NetworkMode& networkMode,
            RecentList& recentList, Recovery& recovery, HeldDay& heldDay, Redraw& redraw)
        : m_cells(cells), m_foot(foot), m_dialog(dialog), m_notes(notes), m_networkMode(networkMode),
          m_recentList(recentList), m_recovery(recovery), m_heldDay(heldDay), m_redraw(redraw)
    {
    }

    void subOpenPlanner();
    void mnuMRU_Click(const MenuItem& entry);
    // Opens the file like an entry of the recent list. The path is used literally; the file may be missing.
    void OpenFile(const QString& path);
    void OpenKnown(const QString& path); // likewise for a path as the program keeps it
    // Opens the planner that the clock has followed, or the start-up planner if it has followed none.
    void OpenFollowed(const QString& path, bool shared);
    void subAutoload(); // the start-up planner, if one is set
    // Calls back when a planner has been opened, and when an opening has left none open.
    void SetOnChange(std::function<void(bool isOpen)> onChange) { m_onChange = std::move(onChange); }

    // Opens g_sDBPath. true means a personal planner, since the argument is passed on as the engine's exclusive
    // argument. g_sDBPath is empty afterwards if the open failed.
    void subOpenDBNoDlg(bool bShared);

    // Asks by OpenAsForm how to open g_sDBPath and sets the network mode. True for a workgroup's planner; empty if the
    // program ends meanwhile.
    std::optional<bool> AskHow();
    // Opens the file in place of the former planner, whose cells are dropped. Raises the errors of
    // DBEngine::OpenDatabase.
    void Adopt(const QString& file, bool exclusive);
    void ClosePlanner(); // unlocks; text typed under the lock is kept for the next opening
    // Closes the open planner, whose notes must be saved, runs the work on its file, and opens it again in the same
    // mode. Returns the work's error; show it only afterwards, since timers run behind a message.
    std::optional<RunTimeError> Reopen(const QString& title, const std::function<void()>& work);

    void ShowPlannerOpen(); // sets title bar, month's title, pointer and the card's list; no cell is current
    void ShowOpenFailed(const RunTimeError& error); // shows the error; no planner is open afterwards

private:
    void OpenListed(const QString& path);
    void AskHowAndOpen();
    bool OpenNotes(bool exclusive, const QString& foot);
    void TakeChange(const QString& table, const QVariant& key);
    void KeepStartPlanner();
    void GiveUp(const QString& reason);
    static bool Upgrade(const std::function<void()>& step); // false after a message and a log entry
    static bool OpenOrAdd(const std::function<void()>& open, const std::function<void()>& add, bool asks);
    static bool OpenAlarms();
    static bool OpenRecursions();
    static void subAddAlarmTable();
    static void subAddRecursionTable();

    Cells& m_cells;
    Foot& m_foot;
    CommonDialog& m_dialog;
    QMTDB& m_notes;
    NetworkMode& m_networkMode;
    RecentList& m_recentList;
    Recovery& m_recovery;
    HeldDay& m_heldDay;
    Redraw& m_redraw;
    std::function<void(bool isOpen)> m_onChange;
    std::optional<bool> m_atEveryStart; // what OpenAsForm has changed, until the planner is open
};
