#include "scenes.h"

#include "editing/zoomboxform.h"
#include "exchange/merging.h"
#include "faultycalls.h"
#include "notes/recoveryform.h"
#include "plannerfile/backups.h"
#include "plannerfile/schema.h"
#include "platform/controls/picturebutton.h"
#include "platform/engine/enginetesting.h"
#include "platform/engine/sqlite/scratchplace.h"
#include "platform/profile/profile.h"
#include "program.h"
#include "recurrence/recurrence.h"

namespace {
const QString Done = u"done"_s;

QString AnswerOf(const std::function<void()>& step)
{
    QString text;
    return ErrorOf(step, &text) == 0 ? Done : text;
}

void SayKept()
{
    std::puts(Keeps);
    std::fflush(stdout);
}

void Press(const QMessageBox& box, std::initializer_list<QMessageBox::StandardButton> first)
{
    for (const auto button : first)
        if (box.button(button)) return box.button(button)->click();
}

// Answers as a careful person. First has the program keep the notes as files. If that fails too, makes room on the disk
// and has it try again.
void AnswerBoxes(QStringList& said)
{
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, qApp, [&said] {
        const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || !box->isVisible()) return;
        const bool isAsked = box->button(QMessageBox::Retry), again = isAsked && said.contains(box->text());
        said += box->text();
        if (again) faultycalls::Disarm();
        again ? Press(*box, {QMessageBox::Retry})
              : Press(*box, {QMessageBox::Cancel, QMessageBox::No, QMessageBox::Ok});
    });
    timer->start(5);
}

// The main window over the stage's planner, and a person using it.
class Session : public Program
{
public:
    explicit Session(const Stage& stage) : m_stage(stage)
    {
        ::folders::SetRootForTests(stage.root);
        AnswerBoxes(said);
        Start();
    }

    void OpenPlanner(bool shared = false) const
    {
        AnswerNextFileDialog(m_stage.Path(Planner));
        AnswerOpenAs(shared);
        Trigger("mnuOpen");
    }
    void TypeTwoDays() const
    {
        Type(CellOf(3), QString::fromLatin1(TypedOnThird));
        Type(CellOf(4), QString::fromLatin1(TypedOnFourth));
    }
    // Waits until the journal has the typed text, or an error is logged or shown; a full disk takes no log.
    bool AwaitJournal() const
    {
        const QString journal = ::folders::ApplicationDirectory() + u"/journal/1.notes"_s;
        const auto isOver = [&] {
            return QFile::exists(journal) || Log().contains("in Journal") ||
                   Bottom().Caption().contains(u"What you type cannot be kept aside"_s);
        };
        Q_UNUSED(QTest::qWaitFor(isOver, support::longestWait));
        if (QFile::exists(journal)) SayKept();
        return QFile::exists(journal);
    }
    void PressLock() const { QTest::mouseClick(form->findChild<PictureButton*>(u"picLock"_s), Qt::LeftButton); }
    QString End(int mode = Mainform::ProcessIsEnded) const
    {
        form->subExitProgram(mode);
        return Done;
    }

    QStringList said;

private:
    const Stage& m_stage;
};

// Ends without a save once the journal is written.
QString JournalIt(const Stage& stage)
{
    const Session session(stage);
    session.OpenPlanner();
    stage.Begin();
    session.TypeTwoDays();
    return session.AwaitJournal() ? Done : session.End();
}

QString Save(const Stage& stage)
{
    const Session session(stage);
    session.OpenPlanner();
    session.TypeTwoDays();
    session.AwaitJournal();
    stage.Begin();
    session.Trigger("mnuSave");
    return session.End();
}

QString Exit(const Stage& stage)
{
    const Session session(stage);
    session.OpenPlanner();
    session.TypeTwoDays();
    session.AwaitJournal();
    stage.Begin();
    return session.End(Mainform::CloseBox);
}

QString LockedDay(const Stage& stage)
{
    const Session session(stage);
    session.OpenPlanner(true);
    session.Click(session.CellOf(3));
    session.PressLock();
    QTest::keyClicks(&session.Box(session.CellOf(3)), QString::fromLatin1(TypedOnThird));
    session.AwaitJournal();
    stage.Begin();
    session.PressLock();
    return session.End();
}

QString DayView(const Stage& stage)
{
    const Session session(stage);
    session.OpenPlanner();
    session.Click(session.CellOf(3));
    OnNextModal<ZoomBoxForm>([&](ZoomBoxForm& form) {
        QTest::keyClicks(&form.tbZoom(), QString::fromLatin1(TypedOnThird));
        session.AwaitJournal();
        stage.Begin();
        Press(form, "btnOk");
    });
    session.Trigger("mnuDayView");
    session.Trigger("mnuSave");
    return session.End();
}

// Recovers what an earlier run left.
QString Recover(const Stage& stage)
{
    SayKept();
    const Session session(stage);
    AnswerNextFileDialog(stage.Path(Planner));
    Program::AnswerOpenAs(false);
    OnNextModal<RecoveryForm>([&](RecoveryForm& form) {
        stage.Begin();
        Press(form, "btnOk");
    });
    session.Trigger("mnuOpen");
    return session.End();
}

void OpenTables(const Stage& stage)
{
    folders::SetRootForTests(stage.root);
    g_bErrorTrap = true;
    g_sDBPath = g_sNotesFile = stage.Path(Planner);
    g_dbPlanner = DBEngine::OpenDatabase(g_sNotesFile, true);
    g_rsQMT = schema::OpenNotes(g_dbPlanner);
    g_rsRecurse = schema::OpenRecursions(g_dbPlanner);
}

QString Recur(const Stage& stage)
{
    OpenTables(stage);
    QStringList said;
    AnswerBoxes(said);
    Recurrence event("{\\rtf1 Standup}", {});
    stage.Begin();
    const bool saved = event.Save(Frequency::Daily, u"3/1/1999"_s, u"4/9/1999"_s, 1);
    return saved && said.isEmpty() ? Done : u"not saved: "_s + said.join(u' ');
}

QString BackUp(const Stage& stage)
{
    OpenTables(stage);
    stage.Begin();
    BackUpBeforeSave();
    const QDir folder(BackupFolder());
    for (const QString& planner : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        if (!QDir(folder.filePath(planner)).entryList({u"*.mdb"_s}).isEmpty()) return Done;
    return u"not copied"_s;
}

// As Compact does for any kind of file.
QString CompactFile(const Stage& stage, const QString& name)
{
    folders::SetRootForTests(stage.root); // the reader lies there
    const QString file = stage.Path(name), scratch = stage.Path(u"/dummy.mdb"_s);
    const std::vector<TableDef> tables = schema::AllTables();
    stage.Begin();
    return AnswerOf([&] {
        const DBEngine::AloneWith alone(file);
        const ScratchPlace place(scratch, file);
        DBEngine::CompactDatabase(file, scratch, tables);
        DBEngine::ReplaceDatabase(scratch, file);
    });
}

QString Compact(const Stage& stage)
{
    return CompactFile(stage, Planner);
}

QString Convert(const Stage& stage)
{
    return CompactFile(stage, OldPlanner);
}

QString Import(const Stage& stage)
{
    ImportedEntry entry;
    entry.id = u"standup"_s;
    entry.repeats = true;
    for (int day = 1; day <= 31; ++day)
        entry.notes.push_back({{1999, 3, day}, 0, "Standup"});
    Database planner = DBEngine::OpenDatabase(stage.Path(Planner));
    stage.Begin();
    return AnswerOf([&] { MergeInto(planner, {entry}, {}, {}); });
}

QString Repair(const Stage& stage)
{
    const std::vector<TableDef> tables = schema::AllTables();
    stage.Begin();
    return AnswerOf([&] { DBEngine::RepairDatabase(stage.Path(Planner), tables); });
}

QString Settings(const Stage& stage)
{
    folders::SetRootForTests(stage.root);
    stage.Begin();
    const bool written = WritePrivateProfileStringA(u"Days"_s, u"Color"_s, u"new"_s, u"PLANNER.INI"_s);
    return written ? Done : u"not written"_s;
}

QString Move(const Stage& stage)
{
    stage.Begin();
    return AnswerOf([&] { DBEngine::MoveToServer(stage.Path(Planner), qEnvironmentVariable("ORRELIN_TEST_ADDRESS")); });
}
} // namespace

const QList<Scene>& Scenes()
{
    static const QList<Scene> scenes = {
        {"journal", JournalIt, true},
        {"save", Save, true},
        {"exit", Exit, true},
        {"locked day", LockedDay, true},
        {"day view", DayView, true},
        {"recovery", Recover, true},
        {"recurrence", Recur, false, true},
        {"import", Import, false, true},
        {"compact", Compact, false, true},
        {"repair", Repair, false, true},
        {"backup", BackUp, false, true},
        {"settings", Settings, false},
        {"convert", Convert, false, true},
        {"move", Move, false, true},
    };
    return scenes;
}
