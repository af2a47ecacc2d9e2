#include "checks.h"
#include "platform/engine/testserver.h"
#include "testmain.h"

#include <QApplication>

#include <csignal>

// Each step of the program that changes files, with a fault at every one of its calls that do: the process is killed,
// the power is cut, the disk is full or bad, once or from there on. Whatever comes, the planner opens, each committed
// note is there, what was typed is somewhere, and a step that says that it is done has done it.
//
// A run by ctest takes every call to kill a step without a window at, and some for all else; ORRELIN_FAULTS=all takes
// every one.

namespace {
using faultycalls::Fault;

constexpr int AtOnce = 4; // children, most of which wait for the journal

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
    std::printf("%d\n%s\n", calls, answer.toUtf8().constData());
    std::fflush(stdout);
    ::_exit(0); // as it is: what the ends of objects would do is not looked at
}

// A child in a folder of its own.
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

    // Waits for its end and looks at what is left.
    Answer Finish()
    {
        Answer answer{m_fault, false, 0, {}};
        Hear(answer);
        if (!QTest::currentTestFailed()) Check(Scenes()[m_scene], m_folder.path(), answer);
        return answer;
    }

private:
    // It ends by itself with an answer, or by the fault that ends it, never by a crash.
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
        answer.calls = lines[lines.size() - 3].toInt();
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

    QMap<int, int> m_calls; // of each scene without a fault
    int m_faults = 0;

    int CallsOf(int scene)
    {
        if (!m_calls.contains(scene)) {
            const Answer whole = Run(scene, Fault::None, 0).Finish();
            m_calls[scene] = whole.text == u"done" ? whole.calls : 0;
            if (whole.text != u"done") qInfo("%s", qPrintable(whole.text));
        }
        return m_calls[scene];
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
        const int calls = CallsOf(scene);
        QVERIFY(calls > 2);
        // A kill costs little where no window is opened.
        const bool takesAll = TakesAll() || (Fault(fault) == Fault::Kill && Scenes()[scene].isQuick);
        const int step = takesAll ? 1 : qMax(1, calls / AtOnce);
        for (int at = 1 + fault % step; at <= calls && !QTest::currentTestFailed();) {
            std::vector<std::unique_ptr<Run>> runs;
            const int first = at;
            for (; at <= calls && runs.size() < AtOnce; at += step, ++m_faults)
                runs.push_back(std::make_unique<Run>(scene, Fault(fault), at));
            for (std::size_t i = 0; i < runs.size() && !QTest::currentTestFailed(); ++i) {
                runs[i]->Finish();
                if (QTest::currentTestFailed()) qInfo("at call %d of %d", first + int(i) * step, calls);
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
