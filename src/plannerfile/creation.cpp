#include "plannerfile/creation.h"

#include "alarms/alarmmarks.h"
#include "calendar/lockedday.h"
#include "calendar/modshow.h"
#include "hall/bottompanel.h"
#include "hall/cells.h"
#include "plannerfile/askforplanner.h"
#include "plannerfile/openasform.h"
#include "plannerfile/opening.h"
#include "plannerfile/plannerstate.h"
#include "plannerfile/qmtdb.h"
#include "plannerfile/schema.h"
#include "platform/desktop/commondialog.h"
#include "platform/desktop/filesystem.h"
#include "platform/desktop/mousepointer.h"
#include "platform/desktop/msgbox.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"
#include "workgroup/networkmode.h"

namespace {
constexpr QLatin1StringView NewTail(" in MainForm, mnuNew_Click");

// The last three letters, without a dot before them: a name such as mymdb counts as having its extension.
void AppendExtension()
{
    const QString extension = QStringLiteral(".mdb");
    if (g_sDBTitle.right(3).toLower() == u"mdb") return;
    g_sDBTitle += extension;
    g_sDBPath += extension;
}

// Says what is being made while it is made; what ends the making, an error too, brings the month's title back.
class CreatingNotice
{
public:
    explicit CreatingNotice(const BottomPanel& bottom) : m_bottom(bottom)
    {
        m_bottom.panelBottom->SetCaption(QStringLiteral("creating ") + g_sDBPath.toLower());
        m_bottom.panelBottom->repaint();
    }
    ~CreatingNotice() { m_bottom.panelBottom->SetCaption(FootTitle()); }
    Q_DISABLE_COPY_MOVE(CreatingNotice)

private:
    const Hourglass m_hourglass;
    const BottomPanel& m_bottom;
};
} // namespace

bool Creation::MayReplaceExisting()
{
    const QString existing = filesystem::Find(g_sDBPath);
    if (existing.isEmpty() || filesystem::Dir(existing).toLower() != g_sDBTitle) return true;
    const int answer =
        MsgBox(QStringLiteral("File exists! Are you sure you want to replace the existing file '") + g_sDBTitle +
                   QStringLiteral("'?"),
               msgbox::YesNo + msgbox::Critical + msgbox::DefaultButton2, QStringLiteral("File Exists!"));
    if (answer != msgbox::Yes) return false;
    // A file that somebody has open stays; making the new one then fails.
    // What its cells had not saved goes with it.
    if (ErrorTail{NewTail}([&] { DBEngine::DeleteDatabase(existing); })) m_notes.ForgetUnsaved(existing);
    return true;
}

void Creation::subNewPlanner()
{
    if (!AskForPlanner(m_dialog, QStringLiteral("New Planner File"), QStringLiteral("&Create"))) return;
    // What is typed under a lock is stored while there is a planner to store it in.
    if (g_bDBShared && m_lockedDay && !m_lockedDay->Commit()) return;
    if (HasPlanner()) {
        m_notes.SetAside();
        m_notes.DropCells();
    }
    g_sDBPath = m_dialog.FileName.toLower();
    g_sDBTitle = m_dialog.FileTitle.toLower();
    if (!MayReplaceExisting()) {
        SetMousePointer(mousepointer::Default);
        return;
    }
    AppendExtension();
    if (!BuildFile() || !AskHowToOpen()) return;
    try {
        OpenNewFile();
    } catch (const RunTimeError& error) {
        m_opening.ShowOpenFailed(error);
        throw;
    }
    m_opening.ShowPlannerOpen();
    if (g_sDBTitle.isEmpty()) return;
    MsgBox(QStringLiteral("New Planner created successfully!\n\n"
                          "Now click on the area below today's date to enter text"),
           msgbox::Information, messages::HelpWizard);
}

bool Creation::BuildFile()
{
    const CreatingNotice notice(m_bottom);
    const QString place = filesystem::PlaceFor(g_sDBPath);
    const QString file = place.isEmpty() ? g_sDBPath : place;
    Database database;
    ErrorTail{NewTail}([&] { database = DBEngine::CreateDatabase(file, schema::Locale); });
    if (database.IsNothing()) {
        MsgBox(QStringLiteral("Could not create New Planner"));
        return false;
    }
    try {
        for (const TableDef& table : {schema::NotesTable(), schema::AlarmsTable(), schema::RecursionsTable()}) {
            database.Append(table);
        }
    } catch (const RunTimeError& error) {
        // Half a planner is none: the next open would find tables missing.
        database.Close();
        ErrorTail{NewTail}([&] { DBEngine::DeleteDatabase(file); });
        MsgBox(QStringLiteral("Could not create New Planner"));
        throw;
    }
    database.Close();
    return true;
}

bool Creation::AskHowToOpen()
{
    OpenAsForm form(g_sDBPath, m_cells.Client()->window());
    if (form.exec() != QDialog::Accepted) return false;
    m_networkMode.subSetNetworkMode(form.Shared());
    return true;
}

void Creation::OpenNewFile()
{
    // Not exclusively, whatever the answer was.
    const QString file = filesystem::Find(g_sDBPath);
    Database database = DBEngine::OpenDatabase(file);
    AdoptPlanner(database, schema::OpenNotes(database), file);
    g_rsAlarm = schema::OpenAlarms(g_dbPlanner);
    g_rsRecurse = schema::OpenRecursions(g_dbPlanner);
    m_notes.DropCells(); // a timer may have filled them again behind a question
    subUnloadAlarmIcons(m_cells);
    m_notes.ReadCells(NewTail);
}
