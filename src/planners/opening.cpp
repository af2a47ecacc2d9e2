#include "planners/opening.h"

#include "calendar/redraw.h"
#include "hall/cells.h"
#include "hall/foot.h"
#include "hall/menus.h"
#include "notes/alarmmarks.h"
#include "notes/heldday.h"
#include "notes/qmtdb.h"
#include "notes/recovery.h"
#include "plannerfile/backups.h"
#include "plannerfile/damagewatch.h"
#include "plannerfile/knownservers.h"
#include "plannerfile/schema.h"
#include "planners/askforplanner.h"
#include "planners/cardplanners.h"
#include "planners/networkmode.h"
#include "planners/openasform.h"
#include "planners/recentlist.h"
#include "planners/startplanner.h"
#include "platform/controls/workwindow.h"
#include "platform/desktop/commondialog.h"
#include "platform/desktop/filesystem.h"
#include "platform/desktop/mousepointer.h"
#include "platform/desktop/msgbox.h"
#include "platform/engine/damage.h"
#include "platform/engine/engineerrors.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"
#include "settings/settings.h"
#include "state/calendarstate.h"
#include "state/plannerstate.h"
#include "state/workgroupstate.h"

#include <QFileInfo>

#include <utility>

namespace {
constexpr QLatin1StringView OpenTail(" in QMTDB.BAS, subOpenDBNoDlg");

// The options are read at each opening, those of the idle unlock also at each lock.
void ReadNetworkOptions()
{
    bGeneralUnlockEnable = Read(settings::AutoUnLock) != 0;
    g_lUnlockDelay = DelaySeconds(Read(settings::UnlockDelay));
    g_lUnlockTicks = 0;
    g_bAutoRefresh = Read(settings::AutoRefresh) != 0;
    g_lRefreshDelay = DelaySeconds(Read(settings::RefreshDelay));
    g_lRefreshTicks = 0;
}
} // namespace

void Opening::subOpenPlanner()
{
    const bool wasOpen = HasPlanner();
    const bool saved = wasOpen && !g_bDBShared && m_notes.HasChanges();
    if (saved) m_notes.subUpdateQMTDatabase();
    if (!AskForPlanner(m_dialog, u"Open Planner File"_s)) {
        if (saved) m_notes.subSeekQMTDatabase();
        return;
    }
    m_heldDay.LeaveBehind(); // before the cell shows another day
    if (wasOpen) m_notes.DropCells();
    g_sDBPath = m_dialog.FileName.toLower();
    g_sDBTitle = m_dialog.FileTitle.toLower();
    AskHowAndOpen();
    if (HasPlanner()) m_notes.subSeekQMTDatabase();
}

void Opening::mnuMRU_Click(const MenuItem& entry)
{
    OpenListed(entry.Caption());
}

void Opening::OpenFile(const QString& path)
{
    filesystem::Remember(path);
    OpenKnown(path.toLower());
}

void Opening::OpenKnown(const QString& path)
{
    g_sDBTitle = QFileInfo(path).fileName().toLower();
    OpenListed(path);
}

void Opening::OpenListed(const QString& path)
{
    m_heldDay.LeaveBehind();
    m_notes.subUpdateQMTDatabase();
    m_redraw.Display();
    g_sDBPath = path;
    AskHowAndOpen();
}

std::optional<bool> Opening::AskHow()
{
    OpenAsForm form(g_sDBPath, m_cells.Client()->window());
    if (form.exec() != QDialog::Accepted) return {};
    m_networkMode.subSetNetworkMode(form.Shared());
    m_atEveryStart.reset();
    if (form.AtEveryStart() != IsStartPlanner(g_sDBPath)) m_atEveryStart = form.AtEveryStart();
    return form.Shared();
}

void Opening::AskHowAndOpen()
{
    if (const auto shared = AskHow()) subOpenDBNoDlg(!*shared);
}

void Opening::Adopt(const QString& file, bool exclusive)
{
    Database database = DBEngine::OpenDatabase(file, exclusive);
    AdoptPlanner(database, schema::OpenNotes(database), file);
    WatchForDamage(file);
    g_dbPlanner.KeepHistory(schema::NoteTexts);
    g_dbPlanner.OnChange([this](const QString& table, const QVariant& key) { TakeChange(table, key); });
    m_notes.DropCells(); // a timer may have filled them while a question was open
    KeepStartPlanner();
    m_onChange(true);
}

void Opening::subOpenDBNoDlg(bool bShared)
{
    ReadNetworkOptions();
    m_networkMode.ApplyTimers();
    SetMousePointer(mousepointer::Hourglass);
    const QString foot = m_foot.Said();
    m_foot.Say(u"opening "_s + g_sDBPath.toLower());
    subUnloadAlarmIcons(m_cells);
    if (!OpenNotes(bShared, foot)) return;
    const bool complete = OpenAlarms() && OpenRecursions();
    m_notes.ReadCells(OpenTail);
    g_iCurrentPanel = 0;
    if (complete) {
        ShowPlannerOpen();
        m_recentList.subLoadMRU(false);
        m_recentList.subUpdateMRU();
    }
    m_foot.ShowMonth();
    SetMousePointer(mousepointer::Default);
    m_recovery.Offer();
}

bool Opening::OpenNotes(bool exclusive, const QString& foot)
{
    const QString file = filesystem::Find(g_sDBPath);
    const QString path = file.isEmpty() ? g_sDBPath : file;
    try {
        if (!MayConnect(path)) {
            GiveUp(foot);
            return false;
        }
        Adopt(path, exclusive);
        return true;
    } catch (const RunTimeError& failure) {
        const RunTimeError error = DBEngine::Explained(failure, path, schema::AllTables());
        ShowOpenFailed(error);
        LogError(error, OpenTail);
        return false;
    }
}

// Only a server reports changes by others; a file is read again by the refresh.
void Opening::TakeChange(const QString& table, const QVariant& key)
{
    if (table == schema::Notes || table == schema::Alarms || table.isEmpty()) m_notes.ReadDay(key.toString());
}

void Opening::ShowOpenFailed(const RunTimeError& error)
{
    SetMousePointer(mousepointer::Default);
    MsgBox(error.Description, msgbox::Exclamation, messages::HelpWizard);
    GiveUp(error.Description);
}

void Opening::GiveUp(const QString& reason)
{
    SetMousePointer(mousepointer::Default);
    m_foot.Say(reason);
    g_sDBPath.clear();
    m_notes.DropCells();
    m_onChange(false);
}

// Only a missing table identifies an older file: no version is stored.
bool Opening::OpenOrAdd(const std::function<void()>& open, const std::function<void()>& add, bool asks)
{
    try {
        open();
        return true;
    } catch (const RunTimeError& error) {
        if (error.Number != engineerrors::NoTable) return false;
    }
    return (!asks ||
            MsgBox(messages::AskUpgrade, msgbox::YesNo + msgbox::Question, messages::HelpWizard) == msgbox::Yes) &&
           Upgrade(add);
}

bool Opening::OpenAlarms()
{
    return OpenOrAdd([] { g_rsAlarm = schema::OpenAlarms(g_dbPlanner); }, subAddAlarmTable, true);
}

// The question about the alarms covers this table, too.
bool Opening::OpenRecursions()
{
    return OpenOrAdd([] { g_rsRecurse = schema::OpenRecursions(g_dbPlanner); }, subAddRecursionTable, false);
}

// A failed backup does not stop the upgrade: the question has told the person to make a copy.
bool Opening::Upgrade(const std::function<void()>& step)
{
    const QString trouble = BackUpBeforeSave();
    if (!trouble.isEmpty())
        MsgBox(u"No copy of the planner could be made before the upgrade: "_s + trouble, msgbox::Exclamation,
               messages::HelpWizard);
    try {
        step();
        return true;
    } catch (const RunTimeError& error) {
        MsgBox(u"The planner could not be upgraded: "_s + error.Description, msgbox::Exclamation, messages::HelpWizard);
        LogError(error, OpenTail);
        return false;
    }
}

void Opening::subAddAlarmTable()
{
    g_dbPlanner.Append(schema::AlarmsTable());
    g_rsAlarm = schema::OpenAlarms(g_dbPlanner);
}

void Opening::subAddRecursionTable()
{
    g_dbPlanner.Append(schema::RecursionsTable());
    g_rsRecurse = schema::OpenRecursions(g_dbPlanner);
}

void Opening::ShowPlannerOpen()
{
    g_iCurrentPanel = 0;
    m_cells.Client()->window()->setWindowTitle(messages::WindowTitle + g_sDBPath);
    m_foot.ShowMonth();
    SetMousePointer(mousepointer::Default);
    PutOnCard(g_sDBPath);
}

void Opening::ClosePlanner()
{
    if (!HasPlanner()) return;
    const ErrorTail tail(" in MainForm, subExitProgram"_L1);
    tail([&] { m_heldDay.LeaveBehind(); });
    m_heldDay.Close();
    g_rsFind = {};
    tail([] { g_rsQMT.Close(); });
    tail([] { g_rsRecurse.Close(); });
    tail([] { g_rsAlarm.Close(); });
    tail([] { g_dbPlanner.Close(); });
}

std::optional<RunTimeError> FailureOf(const QString& title, const std::function<void()>& work)
{
    const Hourglass hourglass;
    const WorkWindow window(title, u"Cancel leaves the planner as it is."_s);
    try {
        work();
        return {};
    } catch (const RunTimeError& error) {
        return error;
    }
}

std::optional<RunTimeError> Opening::Reopen(const QString& title, const std::function<void()>& work)
{
    const QString file = g_sNotesFile;
    const auto failure = FailureOf(title, [&] {
        ClosePlanner();
        damage::SetListener(nullptr); // the command reports damage itself
        work();
    });
    // After a New that must not replace a file, g_sDBPath names that file.
    filesystem::Remember(file);
    g_sDBPath = file.toLower();
    g_sDBTitle = QFileInfo(file).fileName().toLower();
    subOpenDBNoDlg(!g_bDBShared);
    return failure;
}
