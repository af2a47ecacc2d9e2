#include "notes/dayrecord.h"
#include "planners.h"
#include "platform/engine/engineerrors.h"
#include "platform/engine/testserver.h"
#include "platform/runtime/errortail.h"
#include "state/plannerstate.h"
#include "testmain.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <map>
#include <unistd.h>

namespace {
constexpr int Users = 8;
constexpr int Days = 5; // few, so that they meet
constexpr int StormMilliseconds = 5000;
constexpr QLatin1StringView Literal(" in StormTest");

QString KeyOf(int day)
{
    return u"1999/3/%1"_s.arg(day);
}

// A day's text is how often it was committed and by whom: each one takes it on from what it found under its lock.
int CountIn(const QByteArray& text)
{
    return text.split(' ').value(0).toInt();
}

// One line a step, by one call of the system, so that a kill leaves whole lines.
class Journal
{
public:
    explicit Journal(const QString& path) : m_file(path) { QVERIFY(m_file.open(QIODevice::Append)); }

    void Write(const QByteArray& what, int day, const QByteArray& text)
    {
        const QByteArray line = what + '|' + QByteArray::number(day) + '|' + text + '\n';
        if (::write(m_file.handle(), line.data(), std::size_t(line.size())) != line.size()) ::_exit(3);
    }

private:
    QFile m_file;
};

// A user: locks, types, commits and gives up at random until somebody ends it.
class User
{
public:
    User(const QString& planner, const QString& journal) : m_journal(journal)
    {
        g_dbPlanner = DBEngine::OpenDatabase(planner);
    }

    void Run()
    {
        for (;;) {
            const int day = 1 + m_random.bounded(Days);
            try {
                Visit(day);
            } catch (const RunTimeError& error) {
                if (!IsRefusal(error.Number) && error.Number != engineerrors::Busy) {
                    m_journal.Write("error", day, error.Description.toUtf8());
                    ::_exit(4);
                }
                m_journal.Write("refused", day, QByteArray::number(error.Number));
            }
        }
    }

private:
    void Visit(int day)
    {
        m_record.Seek(KeyOf(day), Literal);
        m_record.Edit();
        const QByteArray text = QByteArray::number(CountIn(m_record.Text()) + 1) + ' ' +
                                QByteArray::number(::getpid()) + '.' + QByteArray::number(++m_commits);
        QTest::qSleep(m_random.bounded(4));
        if (m_random.bounded(5) == 0) return m_record.GiveUp();
        m_journal.Write("try", day, text);
        m_record.Commit(text);
        m_journal.Write("done", day, text);
    }

    Journal m_journal;
    DayRecord m_record;
    QRandomGenerator m_random{std::uint32_t(::getpid())};
    int m_commits = 0;
};

struct DayStory
{
    std::map<int, QByteArray> done; // by count
    QList<QByteArray> tried;        // all of them
};
} // namespace

// Eight processes on one planner, in a file or on a server, some of them killed.
class StormTest : public QObject
{
    Q_OBJECT

    std::optional<QTemporaryDir> m_folder;
    std::map<int, DayStory> m_days;
    int m_refusals = 0;

    QString Planner() const { return m_folder->filePath(u"team.mdb"_s); }
    QString JournalOf(int user) const { return m_folder->filePath(u"user%1"_s.arg(user)); }

    std::unique_ptr<QProcess> StartUser(int user) const
    {
        auto process = std::make_unique<QProcess>();
        process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        StartAgain(*process, u"StormUser"_s, {Planner(), JournalOf(user)});
        return process;
    }

    void Storm() const
    {
        std::vector<std::unique_ptr<QProcess>> users;
        for (int user = 0; user < Users; ++user)
            users.push_back(StartUser(user));
        QRandomGenerator random(1999);
        for (QDeadlineTimer end(StormMilliseconds); !end.hasExpired();) {
            QTest::qWait(200 + random.bounded(200));
            const int fallen = random.bounded(Users);
            auto& process = users[std::size_t(fallen)];
            QVERIFY(process->waitForStarted());
            QCOMPARE(process->state(), QProcess::Running); // nobody ends by himself
            process->kill();
            QVERIFY(process->waitForFinished());
            process = StartUser(fallen);
        }
        for (auto& process : users) {
            process->kill();
            QVERIFY(process->waitForFinished());
        }
    }

    void ReadJournals()
    {
        for (int user = 0; user < Users; ++user) {
            QFile file(JournalOf(user));
            QVERIFY(file.open(QIODevice::ReadOnly));
            for (const QByteArray& line : file.readAll().split('\n')) {
                const QList<QByteArray> parts = line.split('|');
                if (parts.size() != 3) continue;
                DayStory& day = m_days[parts[1].toInt()];
                if (parts[0] == "refused") ++m_refusals;
                if (parts[0] == "try") day.tried.append(parts[2]);
                if (parts[0] != "done") continue;
                QVERIFY2(!day.done.contains(CountIn(parts[2])), line); // two have taken it on from the same text
                day.done[CountIn(parts[2])] = parts[2];
            }
        }
    }

    // Reads every row, in a file every page.
    void Check() const
    {
        const QString file = m_folder->filePath(u"saved.mdb"_s);
        QFETCH_GLOBAL(bool, onServer);
        if (onServer) DBEngine::OpenDatabase(Planner()).SaveToFile(file);
        DBEngine::CompactDatabase(onServer ? file : Planner(), m_folder->filePath(u"checked.mdb"_s));
    }

private Q_SLOTS:
    void initTestCase_data() { AddStores(); }
    void initTestCase() { g_bErrorTrap = true; }

    void noCommitIsLostOrDoubled()
    {
        m_folder.emplace();
        m_days.clear();
        m_refusals = 0;
        MakePlanner(Planner());
        QFETCH_GLOBAL(bool, onServer);
        if (onServer) TestServer::Get().Take(Planner());
        Storm();
        ReadJournals();
        Recordset notes = schema::OpenNotes(DBEngine::OpenDatabase(Planner()));
        QStringList keys;
        for (; !notes.EOF_(); notes.MoveNext())
            keys.append(notes.Fields(u"qmtDate"_s).toString());
        QCOMPARE(QSet<QString>(keys.begin(), keys.end()).size(), keys.size());
        int commits = 0;
        for (const auto& [day, story] : m_days) {
            QVERIFY(!story.done.empty());
            commits += int(story.done.size());
            notes.Seek(u"="_s, KeyOf(day));
            const QByteArray text = notes.Fields(u"qmtText"_s).toByteArray();
            // The last one that was told of is there, or one whose user fell before he could tell.
            QVERIFY(CountIn(text) >= story.done.rbegin()->first);
            QVERIFY(story.tried.contains(text));
            if (story.done.contains(CountIn(text))) QCOMPARE(text, story.done.at(CountIn(text)));
            QTRY_COMPARE(ErrorOf([&] { notes.Edit(); }), 0); // the fallen hold nothing
            notes.CancelUpdate();
        }
        notes.Close();
        QVERIFY(commits > Users && m_refusals > 0);
        qInfo("%d commits and %d refusals a second", commits * 1000 / StormMilliseconds,
              m_refusals * 1000 / StormMilliseconds);
        Check();
    }
};

static const Runnable runStormUser("StormUser", [](int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    g_bErrorTrap = true;
    User(QCoreApplication::arguments().at(1), QCoreApplication::arguments().at(2)).Run();
    return 0;
});

ORRELIN_TEST_WITHOUT_WINDOWS(StormTest)

#include "stormtest.moc"
