#include "checks.h"
#include "platform/engine/testserver.h"
#include "testmain.h"

#include <QApplication>

#include <csignal>

// Runs each step of the program that changes files, with a fault at every one of its calls that change a file. The
// process is killed, the power is cut, or the disk is full or bad, once or from then on. In each case the planner
// opens, every committed note is there, typed text is kept somewhere, and a step that reports success has succeeded.
//
// A run by ctest kills a step without a window at each of its calls, fails each sync of a save, and tests some calls of
// all else; ORRELIN_FAULTS=all tests every one.

namespace {
using faultycalls::Fault;

constexpr int AtOnce = 4; // children; most of them wait for the journal

bool TakesAll()
{
    return qEnvironmentVariable("ORRELIN_FAULTS") == u"all";
}

int RunChild(const QStringList& words)
{
    faultycalls::Watch(words[2].toStdString());
    const Stage stage{words[2], [&] { faultycalls::Arm(Fault(words[3].toInt()), words[4].toInt()); }};
    const QString answer = Scenes()[words[1].toInt()].Play(stage);
    const int calls = faultycalls::Disarm();
    std::printf("%d", calls);
    for (const int sync : faultycalls::Syncs())
        std::printf(" %d", sync);
    std::printf("\n%s\n", answer.toUtf8().constData());
    std::fflush(stdout);
    ::_exit(0); // skips the destructors, which are not tested here
}

// A child process with its own folder.
class Run
{
public:
    Run(int scene, Fault fault, int at) : m_scene(scene), m_fault(fault)
    {
        Prepare(Scenes()[scene], m_folder.path());
        m_child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        static int s_planner = 0;
        if (QByteArrayView(Scenes()[scene].name) == "move")
            environment.insert(u"ORRELIN_TEST_ADDRESS"_s, TestServer::Get().Uri(u"fault%1"_s.arg(++s_planner)));
        m_child.setProcessEnvironment(environment);
        StartAgain(m_child, u"FaultScene"_s,
                   {QString::number(scene), m_folder.path(), QString::number(int(fault)), QString::number(at)});
    }

    // Waits for the child's end and checks its files.
    Answer Finish()
    {
        Answer answer{m_fault};
        Hear(answer);
        if (!QTest::currentTestFailed()) Check(Scenes()[m_scene], m_folder.path(), answer);
        return answer;
    }

private:
    // The child ends with an answer or by its fault, never by a crash.
    void Hear(Answer& answer)
    {
        QVERIFY2(m_child.waitForFinished(120000), "it hangs");
        QList<QByteArray> lines = m_child.readAllStandardOutput().split('\n');
        answer.isKept = lines.removeAll(Keeps) > 0;
        if (m_child.exitStatus() == QProcess::CrashExit) {
            QVERIFY2(Ends(m_fault) && m_child.exitCode() == SIGKILL, "it crashed");
            return;
        }
        QCOMPARE(m_child.exitCode(), 0);
        QVERIFY2(lines.size() > 2, "it gave no answer");
        answer.syncs = lines[lines.size() - 3].split(' ');
        answer.calls = answer.syncs.takeFirst().toInt();
        answer.text = QString::fromUtf8(lines[lines.size() - 2]);
    }

    int m_scene;
    Fault m_fault;
    QTemporaryDir m_folder;
    QProcess m_child;
};
} // namespace

class FaultSuite : public QObject
{
    Q_OBJECT

    QMap<int, Answer> m_whole; // of each scene without a fault
    int m_faults = 0;

    const Answer& Whole(int scene)
    {
        if (!m_whole.contains(scene)) {
            const Answer whole = Run(scene, Fault::None, 0).Finish();
            m_whole.insert(scene, whole.text == u"done" ? whole : Answer{Fault::None});
            if (whole.text != u"done") qInfo("%s", qPrintable(whole.text));
        }
        return m_whole[scene];
    }

    // The calls to test.
    QList<int> Places(int scene, Fault fault)
    {
        const int calls = Whole(scene).calls;
        // A kill costs little where no window is opened.
        const bool takesAll = TakesAll() || (fault == Fault::Kill && Scenes()[scene].isQuick);
        const int step = takesAll ? 1 : qMax(1, calls / AtOnce);
        QList<int> places;
        for (int at = 1 + int(fault) % step; at <= calls; at += step)
            places += at;
        if (!takesAll && fault == Fault::BadDisk && QByteArrayView(Scenes()[scene].name) == "save")
            for (const QByteArray& sync : Whole(scene).syncs)
                places += sync.toInt();
        return places;
    }

private Q_SLOTS:
    void NothingIsLost_data()
    {
        QTest::addColumn<int>("scene");
        QTest::addColumn<int>("fault");
        constexpr std::pair<Fault, const char*> Faults[] = {{Fault::Kill, "killed"},
                                                            {Fault::PowerCut, "power cut"},
                                                            {Fault::PowerCutOnBytes, "power cut, names there"},
                                                            {Fault::DiskFull, "disk full once"},
                                                            {Fault::BadDisk, "bad disk once"},
                                                            {Fault::FullFromHere, "disk full"},
                                                            {Fault::BadFromHere, "bad disk"}};
        for (int scene = 0; scene < int(Scenes().size()); ++scene)
            for (const auto& [fault, name] : Faults)
                QTest::addRow("%s, %s", Scenes()[scene].name, name) << scene << int(fault);
    }

    void NothingIsLost()
    {
        QFETCH(int, scene);
        QFETCH(int, fault);
        QVERIFY(Whole(scene).calls > 2);
        const QList<int> places = Places(scene, Fault(fault));
        for (int next = 0; next < places.size() && !QTest::currentTestFailed(); next += AtOnce) {
            std::map<int, Run> runs;
            for (const int at : places.mid(next, AtOnce))
                m_faults += runs.try_emplace(at, scene, Fault(fault), at).second;
            for (auto& [at, run] : runs) {
                if (!QTest::currentTestFailed()) run.Finish();
                if (QTest::currentTestFailed()) qInfo("at call %d of %d", at, Whole(scene).calls);
            }
        }
    }

    void cleanupTestCase() { qInfo("%d faults", m_faults); }
};

static const Runnable runFaultScene("FaultScene", [](int argc, char** argv) {
    const QApplication application(argc, argv);
    return RunChild(QCoreApplication::arguments());
});

static const Runnable runFaultSuite("FaultSuite", [](int argc, char** argv) {
    if (TakesAll()) qputenv("QTEST_FUNCTION_TIMEOUT", "36000000"); // a row has hundreds of calls
    return RunTest<FaultSuite, QApplication>(argc, argv);
});

#include "faultsuite.moc"
