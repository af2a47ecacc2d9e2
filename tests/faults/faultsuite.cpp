#include "faultycalls.h"
#include "plannerfile/journalfile.h"
#include "plannerfile/rescuefiles.h"
#include "planners.h"
#include "platform/engine/damagetesting.h"
#include "platform/engine/testserver.h"
#include "platform/profile/profile.h"
#include "program.h"
#include "recurrence/recurrence.h"

#include <QProcess>

// Each step of the program that changes files, with a fault at every one of its calls that do: the process is killed,
// the disk is full or bad, once or from there on. Whatever comes, the planner opens, each committed note is there, what
// was typed is somewhere, and a step that says that it is done has done it.
//
// A run by ctest takes some of the calls; ORRELIN_FAULTS=all takes every one.

namespace {
using faultycalls::Fault;

const QString Planner = QStringLiteral("/planner.mdb"), OldPlanner = QStringLiteral("/old.mdb");
const QString Third = QStringLiteral("1999/3/3"), Fourth = QStringLiteral("1999/3/4");
constexpr const char* TypedOnThird = "typed on the third ";
constexpr int EventDays = 40;

// What a step does in the child. It calls Begin() when all is made ready. The answer is printed: "done", or what was
// said instead.
struct Scene
{
    QString root;
    std::function<void()> Begin;
    QString Path(const QString& name) const { return root + name; }
};

QString AnswerOf(const std::function<void()>& step)
{
    QString text;
    return ErrorOf(step, &text) == 0 ? QStringLiteral("done") : text;
}

// Nobody is there: boxes are closed the way that gives up nothing.
void CloseBoxes(QStringList& said)
{
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, qApp, [&said] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || !box->isVisible()) return;
        said += box->text();
        for (const auto button : {QMessageBox::Cancel, QMessageBox::No, QMessageBox::Ok}) {
            if (!box->button(button)) continue;
            box->button(button)->click();
            return;
        }
    });
    timer->start(5);
}

void Open(const Program& program, const Scene& scene)
{
    AnswerNextFileDialog(scene.Path(Planner));
    Program::AnswerOpenAs(false);
    program.Trigger("mnuOpen");
}

// Typed into two days, one with a note; journalled, saved, and the session ends.
QString Save(const Scene& scene)
{
    Program program;
    folders::SetRootForTests(scene.root);
    program.Start();
    Open(program, scene);
    program.Type(program.CellOf(3), QString::fromLatin1(TypedOnThird));
    program.Type(program.CellOf(4), QStringLiteral("typed on the fourth "));
    const QString journal = folders::ApplicationDirectory() + QStringLiteral("/journal/1.notes");
    if (!QTest::qWaitFor([&] { return QFile::exists(journal); })) return QStringLiteral("no journal");
    QStringList said;
    CloseBoxes(said);
    scene.Begin();
    program.Trigger("mnuSave");
    program.form->subExitProgram(Mainform::ProcessIsEnded);
    return QStringLiteral("done");
}

QString Recur(const Scene& scene)
{
    folders::SetRootForTests(scene.root);
    g_bErrorTrap = true;
    g_sDBPath = g_sNotesFile = scene.Path(Planner);
    g_dbPlanner = DBEngine::OpenDatabase(g_sNotesFile, true);
    g_rsQMT = schema::OpenNotes(g_dbPlanner);
    g_rsRecurse = schema::OpenRecursions(g_dbPlanner);
    QStringList said;
    CloseBoxes(said);
    Recurrence event("{\\rtf1 Standup}", {}, [](qsizetype, qsizetype) {});
    scene.Begin();
    const bool saved = event.fnRecurseDaily(QStringLiteral("3/1/1999"), QStringLiteral("4/9/1999"), 1);
    return saved && said.isEmpty() ? QStringLiteral("done") : QStringLiteral("not saved: ") + said.join(u' ');
}

QString Compact(const Scene& scene)
{
    scene.Begin();
    return AnswerOf([&] {
        const DBEngine::AloneWith alone(scene.Path(Planner));
        DBEngine::CompactDatabase(scene.Path(Planner), scene.Path(QStringLiteral("/dummy.mdb")));
        DBEngine::ReplaceDatabase(scene.Path(QStringLiteral("/dummy.mdb")), scene.Path(Planner));
    });
}

QString Repair(const Scene& scene)
{
    scene.Begin();
    return AnswerOf([&] { DBEngine::RepairDatabase(scene.Path(Planner)); });
}

QString BackUp(const Scene& scene)
{
    Database planner = DBEngine::OpenDatabase(scene.Path(Planner));
    scene.Begin();
    return AnswerOf([&] { planner.BackUp(scene.Path(QStringLiteral("/copy.mdb"))); });
}

QString Settings(const Scene& scene)
{
    folders::SetRootForTests(scene.root);
    scene.Begin();
    const bool written = WritePrivateProfileStringA(QStringLiteral("Days"), QStringLiteral("Color"),
                                                    QStringLiteral("new"), QStringLiteral("PLANNER.INI"));
    return written ? QStringLiteral("done") : QStringLiteral("not written");
}

// A file of the older engine, beside the planner.
QString Convert(const Scene& scene)
{
    folders::SetRootForTests(scene.root); // where the reader is
    scene.Begin();
    return AnswerOf([&] {
        const DBEngine::AloneWith alone(scene.Path(OldPlanner));
        DBEngine::CompactDatabase(scene.Path(OldPlanner), scene.Path(QStringLiteral("/dummy.mdb")), plannerTables);
        DBEngine::ReplaceDatabase(scene.Path(QStringLiteral("/dummy.mdb")), scene.Path(OldPlanner));
    });
}

QString Move(const Scene& scene)
{
    scene.Begin();
    return AnswerOf([&] { DBEngine::MoveToServer(scene.Path(Planner), qEnvironmentVariable("ORRELIN_TEST_ADDRESS")); });
}

struct Work
{
    const char* name;
    QString (*run)(const Scene& scene);
};

constexpr Work Works[] = {{"save", Save},     {"recurrence", Recur},  {"compact", Compact}, {"repair", Repair},
                          {"backup", BackUp}, {"settings", Settings}, {"convert", Convert}, {"move", Move}};

bool TakesAll()
{
    return qEnvironmentVariable("ORRELIN_FAULTS") == u"all";
}

int RunChild(const QStringList& words)
{
    const Scene scene{words[3], [&] { faultycalls::Arm(Fault(words[4].toInt()), words[5].toInt()); }};
    const QString answer = Works[words[2].toInt()].run(scene);
    const int calls = faultycalls::Disarm();
    std::printf("%d\n%s\n", calls, answer.toUtf8().constData());
    std::fflush(stdout);
    ::_exit(0); // as it is: what the ends of objects would do is not looked at
}
} // namespace

class FaultSuite : public QObject
{
    Q_OBJECT

    std::optional<QTemporaryDir> m_folder;
    int m_faults = 0;

    QString Root() const { return m_folder->path(); }
    QString Path(const QString& name) const { return Root() + name; }
    static QByteArray OldNote(int day) { return "{\\rtf1 old note " + QByteArray::number(day) + "}"; }

    void MakePlanner()
    {
        m_folder.emplace();
        QDir().mkpath(Path(QStringLiteral("/shipped")));
        QFile::link(QStringLiteral(READER), Path(QStringLiteral("/shipped/orrelin-readjet")));
        QFile::copy(QStringLiteral(SAMPLE), Path(OldPlanner));
        QFile::setPermissions(Path(OldPlanner), QFile::ReadOwner | QFile::WriteOwner);
        Database planner = ::MakePlanner(Path(Planner));
        Recordset notes = schema::OpenNotes(planner);
        for (int day = 1; day <= 30; day += 2) // every other one
            Write(notes, QStringLiteral("1999/3/%1").arg(day), OldNote(day));
        folders::SetRootForTests(Root());
        WritePrivateProfileStringA(QStringLiteral("Days"), QStringLiteral("Color"), QStringLiteral("old"),
                                   QStringLiteral("PLANNER.INI"));
        WritePrivateProfileStringA(QStringLiteral("Days"), QStringLiteral("Font"), QStringLiteral("kept"),
                                   QStringLiteral("PLANNER.INI"));
        folders::SetRootForTests({});
    }

    // What the notes are found by; the notes themselves stay whole.
    void SpoilIndex() const
    {
        const QByteArray page = Ask(Path(Planner), "SELECT rootpage FROM sqlite_master WHERE type = 'index'")[0][0];
        const QByteArray size = Ask(Path(Planner), "PRAGMA page_size")[0][0];
        QByteArray bytes = Content(Path(Planner));
        bytes.replace((page.toInt() - 1) * size.toInt(), size.toInt(), QByteArray(size.toInt(), '\x5a'));
        SetContent(Path(Planner), bytes);
    }

    void Prepare(int work)
    {
        MakePlanner();
        if (Works[work].run == Repair) SpoilIndex();
    }

    struct Answer
    {
        int calls = 0;
        QString text; // empty where the child was killed
    };
    Answer Run(int work, Fault fault, int at) const
    {
        QProcess child;
        static int s_planner = 0;
        if (Works[work].run == Move) {
            const QString address = TestServer::Get().Uri(QStringLiteral("fault%1").arg(++s_planner));
            qputenv("ORRELIN_TEST_ADDRESS", address.toUtf8());
        }
        child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--child"), QString::number(work), Root(),
                                                              QString::number(int(fault)), QString::number(at)});
        if (!child.waitForFinished(120000)) return {0, QStringLiteral("it hangs")};
        const QList<QByteArray> lines = child.readAllStandardOutput().split('\n');
        if (lines.size() < 2) return {};
        return {lines[0].toInt(), QString::fromUtf8(lines[1])};
    }

    // The text of each day, or what the planner says instead.
    QMap<QString, QByteArray> NotesNow() const
    {
        QMap<QString, QByteArray> notes;
        Database planner = DBEngine::OpenDatabase(Path(Planner), true);
        for (Recordset all = schema::OpenNotes(planner); !all.EOF_(); all.MoveNext())
            notes[all.Fields(QStringLiteral("qmtDate")).toString()] =
                all.Fields(QStringLiteral("qmtText")).toByteArray();
        return notes;
    }

    // All files of a folder, one behind the other.
    QByteArray AllOf(const QString& folder) const
    {
        QByteArray all;
        for (const QFileInfo& file : QDir(folder).entryInfoList(QDir::Files))
            all += Content(file.filePath());
        return all;
    }

    void CheckSave(const Answer&, const QMap<QString, QByteArray>& notes) const
    {
        folders::SetRootForTests(Root());
        const QByteArray elsewhere =
            AllOf(RescueFolder()) + AllOf(folders::ApplicationDirectory() + QStringLiteral("/journal"));
        folders::SetRootForTests({});
        for (const auto& [key, text] :
             {std::pair(Third, "typed on the third"), std::pair(Fourth, "typed on the fourth")})
            QVERIFY2(notes.value(key).contains(text) || elsewhere.contains(text), text);
    }
    void CheckRecurrence(const Answer& answer, const QMap<QString, QByteArray>& notes) const
    {
        int written = 0;
        for (const QByteArray& note : notes)
            written += note.contains("Standup");
        Database planner = DBEngine::OpenDatabase(Path(Planner), true);
        const bool hasRecord = !schema::OpenRecursions(planner).EOF_();
        QVERIFY2(written == 0 || hasRecord, "an event that could never be taken out again");
        if (answer.text == u"done") QCOMPARE(written, EventDays);
    }
    void CheckBackUp(const Answer& answer) const
    {
        const QString copy = Path(QStringLiteral("/copy.mdb"));
        if (answer.text == u"done") QVERIFY(QFile::exists(copy));
        if (QFile::exists(copy)) QCOMPARE(NotesIn(copy).size(), 15);
    }
    // What broke off is taken up by the next repair.
    void CheckRepair(const Answer& answer) const
    {
        DBEngine::RepairReport second;
        QCOMPARE(ErrorOf([&] { second = DBEngine::RepairDatabase(Path(Planner)); }), 0);
        QVERIFY2(answer.text != u"done" || second.KeptAs.isEmpty(), "said to be repaired");
    }
    // Whole under its name, or under another beside the new one.
    void CheckConvert(const Answer& answer) const
    {
        const QByteArray sample = Content(QStringLiteral(SAMPLE));
        const bool isConverted = Content(Path(OldPlanner)) != sample;
        if (isConverted) QCOMPARE(Content(Path(QStringLiteral("/old.old.mdb"))), sample);
        if (isConverted) QVERIFY(NotesIn(Path(OldPlanner)).size() > 1);
        QVERIFY(isConverted || answer.text != u"done");
    }
    void CheckMove(const Answer& answer) const
    {
        const bool isLink = !DBEngine::LinkedAddress(Path(Planner)).isEmpty();
        QVERIFY(isLink || answer.text != u"done");
        if (isLink) QCOMPARE(NotesIn(Path(QStringLiteral("/planner.bak"))).size(), 15);
    }
    void CheckSettings(const Answer& answer) const
    {
        folders::SetRootForTests(Root());
        const auto read = [](const char* key) {
            return GetPrivateProfileStringA(QStringLiteral("Days"), QString::fromLatin1(key), {}, 20,
                                            QStringLiteral("PLANNER.INI"));
        };
        const QString color = read("Color"), font = read("Font");
        folders::SetRootForTests({});
        QVERIFY2(color == u"new" || (color == u"old" && answer.text != u"done"), qPrintable(color));
        QCOMPARE(font, QStringLiteral("kept"));
    }

    void Check(int work, const Answer& answer)
    {
        QVERIFY2(answer.text != u"it hangs", "it hangs");
        if (Works[work].run == Repair) CheckRepair(answer);
        QMap<QString, QByteArray> notes;
        QCOMPARE(ErrorOf([&] { notes = NotesNow(); }), 0);
        for (int day = 1; day <= 30; day += 2) {
            QByteArray note = notes.value(QStringLiteral("1999/3/%1").arg(day));
            note.replace(TypedOnThird, ""); // in the middle of the old one
            QVERIFY2(note.contains("old note " + QByteArray::number(day)), note);
        }
        const QByteArrayView name = Works[work].name;
        if (name == "save") CheckSave(answer, notes);
        if (name == "recurrence") CheckRecurrence(answer, notes);
        if (name == "backup") CheckBackUp(answer);
        if (name == "settings") CheckSettings(answer);
        if (name == "convert") CheckConvert(answer);
        if (name == "move") CheckMove(answer);
        if (!DBEngine::LinkedAddress(Path(Planner)).isEmpty()) return;
        // Every page of the file.
        QFile::remove(Path(QStringLiteral("/checked.mdb")));
        QCOMPARE(ErrorOf([&] { DBEngine::CompactDatabase(Path(Planner), Path(QStringLiteral("/checked.mdb"))); }), 0);
    }

private Q_SLOTS:
    void NothingIsLost_data()
    {
        QTest::addColumn<int>("work");
        QTest::addColumn<int>("fault");
        constexpr std::pair<Fault, const char*> Faults[] = {{Fault::Kill, "killed"},
                                                            {Fault::DiskFull, "disk full once"},
                                                            {Fault::BadDisk, "bad disk once"},
                                                            {Fault::FullFromHere, "disk full"},
                                                            {Fault::BadFromHere, "bad disk"}};
        for (int work = 0; work < int(std::size(Works)); ++work)
            for (const auto& [fault, name] : Faults)
                QTest::addRow("%s, %s", Works[work].name, name) << work << int(fault);
    }

    void NothingIsLost()
    {
        QFETCH(int, work);
        QFETCH(int, fault);
        Prepare(work);
        const Answer whole = Run(work, Fault::None, 0);
        QCOMPARE(whole.text, QStringLiteral("done"));
        QVERIFY(whole.calls > 2);
        Check(work, whole);
        const int step = TakesAll() ? 1 : qMax(1, whole.calls / 4);
        for (int at = 1 + fault % step; at <= whole.calls && !QTest::currentTestFailed(); at += step, ++m_faults) {
            Prepare(work);
            Check(work, Run(work, Fault(fault), at));
            if (QTest::currentTestFailed()) qInfo("at call %d of %d", at, whole.calls);
        }
    }

    void cleanupTestCase() { qInfo("%d faults", m_faults); }
};

int main(int count, char** words)
{
    QApplication application(count, words);
    if (QCoreApplication::arguments().value(1) == u"--child") return RunChild(QCoreApplication::arguments());
    if (TakesAll()) qputenv("QTEST_FUNCTION_TIMEOUT", "36000000"); // a row has hundreds of calls
    FaultSuite suite;
    return QTest::qExec(&suite, count, words);
}

#include "faultsuite.moc"
