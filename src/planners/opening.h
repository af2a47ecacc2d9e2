// Opens planners: by the file dialog, from the recent list, at start. Brings older files up to date on the way. Closes
// the open one, at the exit and for work on its file.
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

// Does it under the hourglass. What ended it, if anything did.
std::optional<RunTimeError> FailureOf(const std::function<void()>& work);

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
    // As from the recent list. The path is that of a file, letter for letter, whether it is there or not.
    void OpenFile(const QString& path);
    void subAutoload(); // the planner of the start-up options, if one is set

    // Opens g_sDBPath. The argument goes straight into the engine's exclusive argument, so true means a personal
    // planner. On return g_sDBPath is empty if the open failed.
    void subOpenDBNoDlg(bool bShared);

    // How g_sDBPath is to be opened, by OpenAsForm, and the mode of that; whether it is a workgroup's planner. Nothing
    // where the program ends meanwhile.
    std::optional<bool> AskHow();
    // Opens the file and has it follow the planner before it, whose cells are dropped. Errors as
    // DBEngine::OpenDatabase.
    void Adopt(const QString& file, bool exclusive);
    void ClosePlanner(); // a lock ends with it, and what was typed under it waits for the next opening
    // Work on the file of the open planner, whose notes are saved, that nobody, this program included, may have open
    // meanwhile: closes it and opens it again as it was open. What ended the work, if anything did: to be told
    // afterwards, since the timers go on behind a message.
    std::optional<RunTimeError> Reopen(const std::function<void()>& work);

    void ShowPlannerOpen();                         // title bar, month's title, pointer; no cell is current
    void ShowOpenFailed(const RunTimeError& error); // says so; no planner is open then

private:
    void OpenListed(const QString& path);
    void AskHowAndOpen();
    bool OpenNotes(bool exclusive, const QString& foot);
    void TakeChange(const QString& table, const QVariant& key);
    void GiveUp(const QString& reason);
    static bool Upgrade(const std::function<void()>& step); // false: it is said and logged
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
};
