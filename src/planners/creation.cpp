#include "planners/creation.h"

#include "hall/cells.h"
#include "hall/foot.h"
#include "notes/alarmmarks.h"
#include "notes/qmtdb.h"
#include "plannerfile/schema.h"
#include "planners/askforplanner.h"
#include "planners/opening.h"
#include "platform/desktop/commondialog.h"
#include "platform/desktop/filesystem.h"
#include "platform/desktop/mousepointer.h"
#include "platform/desktop/msgbox.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"
#include "state/lockedday.h"
#include "state/plannerstate.h"

namespace {
constexpr QLatin1StringView NewTail(" in MainForm, mnuNew_Click");

const QString Extension = u".mdb"_s;

// Compares the last three letters without a dot, so a name such as mymdb counts as having its extension.
bool HasExtension()
{
    return g_sDBTitle.right(3).toLower() == u"mdb";
}

// Shows what is being created. Its end restores the month's title, also after an error.
class CreatingNotice
{
public:
    explicit CreatingNotice(Foot& foot) : m_foot(foot) { m_foot.Say(u"creating "_s + g_sDBPath.toLower()); }
    ~CreatingNotice() { m_foot.ShowMonth(); }
    Q_DISABLE_COPY_MOVE(CreatingNotice)

private:
    const Hourglass m_hourglass;
    Foot& m_foot;
};

bool MayReplace(const QString& title)
{
    return MsgBox(u"File exists! Are you sure you want to replace the existing file '"_s + title + u"'?"_s,
                  msgbox::YesNo + msgbox::Critical + msgbox::DefaultButton2, u"File Exists!"_s) == msgbox::Yes;
}
} // namespace

// Asks about a file with the typed name and about one with the extension added.
std::optional<QStringList> Creation::TakeName()
{
    const Names typed = {g_sDBPath, g_sDBTitle};
    const Names made = HasExtension() ? typed : Names{typed.path + Extension, typed.title + Extension};
    QStringList replaced;
    for (const Names& names : {typed, made}) {
        const QString existing = filesystem::Find(names.path);
        const bool isThere = !existing.isEmpty() && filesystem::Dir(existing).toLower() == names.title;
        if (!isThere || replaced.contains(existing)) continue;
        if (!MayReplace(names.title)) return {};
        replaced << existing;
    }
    g_sDBPath = made.path;
    g_sDBTitle = made.title;
    return replaced;
}

void Creation::subNewPlanner()
{
    if (!AskForPlanner(m_dialog, u"New Planner File"_s, u"&Create"_s)) return;
    // Text under a lock is stored while its planner is still open.
    if (g_bDBShared && !m_lockedDay.Commit()) return;
    const Names former = {g_sDBPath, g_sDBTitle};
    if (HasPlanner()) {
        m_notes.SetAside();
        m_notes.DropCells();
    }
    g_sDBPath = m_dialog.FileName.toLower();
    g_sDBTitle = m_dialog.FileTitle.toLower();
    const auto replaced = TakeName();
    if (!replaced) return ReadAgain(former);
    if (const auto reason = BuildFile(*replaced)) {
        g_sDBPath = former.path;
        g_sDBTitle = former.title;
        ReadAgain(former);
        MsgBox(u"Could not create New Planner"_s, 0, QString(), *reason);
        return;
    }
    if (m_opening.AskHow()) OpenAndTell(); // else the program is ending
}

// Restores the cells' notes after a New that was cancelled or failed.
void Creation::ReadAgain(const Names& former)
{
    SetMousePointer(mousepointer::Default);
    if (!former.path.isEmpty()) m_notes.subSeekQMTDatabase();
}

void Creation::OpenAndTell()
{
    try {
        OpenNewFile();
    } catch (const RunTimeError& error) {
        m_opening.ShowOpenFailed(error);
        throw;
    }
    m_opening.ShowPlannerOpen();
    if (g_sDBTitle.isEmpty()) return;
    MsgBox(u"New Planner created successfully!\n\n"
           "Now click on the area below today's date to enter text"_s,
           msgbox::Information, messages::HelpWizard);
}

std::optional<QString> Creation::BuildFile(const QStringList& replaced)
{
    const CreatingNotice notice(m_foot);
    try {
        for (const QString& file : replaced) {
            DBEngine::DeleteDatabase(file);
            m_notes.ForgetUnsaved({file}); // and with the file its unsaved notes
        }
        const QString place = filesystem::PlaceFor(g_sDBPath);
        MakeTables(place.isEmpty() ? g_sDBPath : place);
        return {};
    } catch (const RunTimeError& error) {
        LogError(error, NewTail);
        return error.Description;
    }
}

void Creation::MakeTables(const QString& file)
{
    Database database = DBEngine::CreateDatabase(file, schema::Locale);
    try {
        for (const TableDef& table : schema::AllTables())
            database.Append(table);
    } catch (const RunTimeError&) {
        // A planner without all its tables must not stay.
        database.Close();
        ErrorTail{NewTail}([&] { DBEngine::DeleteDatabase(file); });
        throw;
    }
    database.Close();
}

void Creation::OpenNewFile()
{
    m_opening.Adopt(filesystem::Find(g_sDBPath), false); // never exclusively, whatever the answer was
    g_rsAlarm = schema::OpenAlarms(g_dbPlanner);
    g_rsRecurse = schema::OpenRecursions(g_dbPlanner);
    subUnloadAlarmIcons(m_cells);
    m_notes.ReadCells(NewTail);
}
