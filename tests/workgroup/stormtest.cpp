#include "files.h"
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

#include <map>
#include <unistd.h>

namespace {
constexpr int Users = 8;
constexpr int Days = 5; // few, so that users meet
constexpr int StormMilliseconds = 5000, LongestStorm = 120000;

QString KeyOf(int day)
{
    return u"1999/3/%1"_s.arg(day);
}

// A day's text is a commit count and a user. Each user adds one to the text found under the lock.
int CountIn(const QByteArray& text)
{
    return text.split(' ').value(0).toInt();
}

// A user locks, types, commits and cancels at random until killed. Its journal gets a line for each commit and refusal,
// each by a single write, so a kill leaves whole lines.
class User
{
public:
    User(const QString& planner, const QString& journal) : m_journal(journal)
    {
        while (IsRefused([&] { g_dbPlanner = DBEngine::OpenDatabase(planner); })) {
        }
        if (!m_journal.open(QIODevice::Append | QIODevice::Unbuffered)) qFatal("no journal");
    }

    void Run()
    {
        for (;;)
            if (IsRefused([this] { Visit(1 + m_random.bounded(Days)); })) m_journal.write("refused\n");
    }

private:
    // Any other error ends the user.
    static bool IsRefused(const std::function<void()>& step)
    {
        QString text;
        const int error = ErrorOf(step, &text);
        if (error != 0 && !IsRefusal(error) && error != engineerrors::Busy) qFatal("%s", qPrintable(text));
        return error != 0;
    }

    void Visit(int day)
    {
        m_record.Seek(KeyOf(day), " in StormTest"_L1);
        m_record.Edit();
        const QByteArray text = QByteArray::number(CountIn(m_record.Text()) + 1) + ' ' +
                                QByteArray::number(::getpid()) + '.' + QByteArray::number(++m_commits);
        QTest::qSleep(m_random.bounded(4));
        if (m_random.bounded(5) == 0) return m_record.GiveUp();
        m_record.Commit(text);
        m_journal.write(QByteArray::number(day) + '|' + text + '\n');
    }

    QFile m_journal;
    DayRecord m_record;
    QRandomGenerator m_random{std::uint32_t(::getpid())};
    int m_commits = 0;
};
} // namespace

// Eight processes on one planner, in a file or on a server. Some of them are killed.
class StormTest : public QObject
{
    Q_OBJECT

    std::optional<QTemporaryDir> m_folder;
    std::map<int, std::map<int, QByteArray>> m_commits; // by day and count

    QString Planner() const { return m_folder->filePath(u"team.mdb"_s); }
    QString JournalOf(int user) const { return m_folder->filePath(u"user%1"_s.arg(user)); }

    std::unique_ptr<QProcess> StartUser(int user) const
    {
        auto process = std::make_unique<QProcess>();
        process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        StartAgain(*process, u"StormUser"_s, {Planner(), JournalOf(user)});
        return process;
    }

    // Whether users have committed and met.
    bool HaveMet() const
    {
        QByteArray all;
        for (int user = 0; user < Users; ++user)
            all += Content(JournalOf(user));
        return all.count('|') > Users && all.contains("refused\n");
    }

    void Storm() const
    {
        std::vector<std::unique_ptr<QProcess>> users;
        for (int user = 0; user < Users; ++user)
            users.push_back(StartUser(user));
        QRandomGenerator random(1999);
        const QDeadlineTimer end(StormMilliseconds), limit(LongestStorm); // users may stall
        while (!end.hasExpired() || (!limit.hasExpired() && !HaveMet())) {
            QTest::qWait(200 + random.bounded(200));
            const int fallen = random.bounded(Users);
            auto& process = users[std::size_t(fallen)];
            QVERIFY(process->waitForStarted());
            QCOMPARE(process->state(), QProcess::Running); // no user ends by itself
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
            for (const QByteArray& line : Content(JournalOf(user)).split('\n')) {
                const QList<QByteArray> parts = line.split('|');
                if (parts.size() != 2) continue;
                auto& day = m_commits[parts[0].toInt()];
                QVERIFY2(!day.contains(CountIn(parts[1])), line); // otherwise two users added to the same text
                day[CountIn(parts[1])] = parts[1];
            }
        }
    }

    // Reads every row, and every page of a file.
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
        m_commits.clear();
        MakePlanner(Planner());
        QFETCH_GLOBAL(bool, onServer);
        if (onServer) TestServer::Get().Take(Planner());
        Storm();
        ReadJournals();
        Recordset notes = schema::OpenNotes(DBEngine::OpenDatabase(Planner()));
        QSet<QString> keys;
        for (; !notes.EOF_(); notes.MoveNext()) {
            const QString key = notes.Fields(u"qmtDate"_s).toString();
            QVERIFY2(!keys.contains(key), qPrintable(key));
            keys += key;
        }
        for (const auto& [day, texts] : m_commits) {
            notes.Seek(u"="_s, KeyOf(day));
            const QByteArray text = notes.Fields(u"qmtText"_s).toByteArray();
            // The last logged commit is there, or one of a user killed before logging it.
            QVERIFY(CountIn(text) >= texts.rbegin()->first);
            if (texts.contains(CountIn(text))) QCOMPARE(text, texts.at(CountIn(text)));
            // Killed users hold no lock.
            QTRY_COMPARE_WITH_TIMEOUT(ErrorOf([&] { notes.Edit(); }), 0, TestServer::LongestWait);
            notes.CancelUpdate();
        }
        notes.Close();
        QTRY_COMPARE_WITH_TIMEOUT(ErrorOf([&] { DBEngine::OpenDatabase(Planner(), true); }), 0,
                                  TestServer::LongestWait);
        QVERIFY(HaveMet());
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
