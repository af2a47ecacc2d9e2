// A planner taken to a server and back: nothing lost on the way, and nothing changed when it fails.
#include "damagetesting.h"
#include "platform/engine/engineerrors.h"
#include "testmain.h"
#include "testserver.h"

#include <QDir>

using namespace engineerrors;

class MovingTest : public QObject
{
    Q_OBJECT

    std::optional<QTemporaryDir> m_folder;
    QString m_path, m_back, m_uri;
    QString m_planner;
    int m_count = 0;

    QStringList Files() const { return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden); }
    int Move(QString* text = nullptr) const
    {
        return ErrorOf([&] { DBEngine::MoveToServer(m_path, m_uri); }, text);
    }
    QStringList TablesOnServer() const
    {
        return TestServer::Get().Ask(
            u"SELECT tablename FROM pg_tables WHERE schemaname = 'orrelin_%1'"_s.arg(m_planner));
    }

private Q_SLOTS:
    void init()
    {
        m_folder.emplace();
        m_path = m_folder->filePath(u"notes.mdb"_s);
        m_back = m_folder->filePath(u"back.mdb"_s);
        m_planner = u"moved%1"_s.arg(++m_count);
        m_uri = TestServer::Get().Uri(m_planner);
        MakeFullPlanner(m_path);
    }

    void ThereAndBackNothingIsLost()
    {
        const Notes notes = NotesIn(m_path);
        DBEngine::MoveToServer(m_path, m_uri);
        QVERIFY(NotesIn(m_folder->filePath(u"notes.bak"_s)) == notes);
        QCOMPARE(Content(m_path), "Orrelin planner link 1\n" + m_uri.toUtf8() + '\n');
        QCOMPARE(Files(), QStringList({u"notes.bak"_s, u"notes.ldb"_s, u"notes.mdb"_s}));
        {
            Database database = DBEngine::OpenDatabase(m_path); // others may go on
            database.SaveToFile(m_back);
            // Where it is, and not where an edited link leads to by now.
            SetContent(m_path, "Orrelin planner link 1\npostgresql://nowhere/x?planner=other\n");
            QCOMPARE(database.ServerAddress(), m_uri);
            QFile::remove(m_back);
            database.SaveToFile(m_back);
            QCOMPARE(ErrorOf([&] { database.SaveToFile(m_back); }), FileExists);
            SetContent(m_path, "Orrelin planner link 1\n" + m_uri.toUtf8() + '\n');
        }
        QVERIFY(NotesIn(m_back) == notes);
        QCOMPARE(ErrorOf([&] { DBEngine::OpenDatabase(m_back); }), 0);
        QVERIFY(!Files().contains("back.mdb.new"_L1));
        // The order of records that have no key in the index is that of their insertion.
        const QByteArray rows = "SELECT qmtDate FROM \"QMT Table\" ORDER BY \"record id\"";
        QCOMPARE(Ask(m_back, rows), Ask(m_folder->filePath(u"notes.bak"_s), rows));
        for (const auto& step : {std::function([&] { DBEngine::CompactDatabase(m_path, m_back + u'2'); }),
                                 std::function([&] { DBEngine::RepairDatabase(m_path); }),
                                 std::function([&] { const DBEngine::AloneWith alone(m_path); }),
                                 std::function([&] { DBEngine::MoveToServer(m_path, m_uri); })})
            QCOMPARE(ErrorOf(step), NotSupported);
    }

    void WhatCannotBeMovedStaysAsItWas_data()
    {
        QTest::addColumn<QString>("hindrance");
        QTest::addColumn<int>("error");
        QTest::newRow("open") << "open" << InUse;
        QTest::newRow("password") << "password" << NotADatabase;
        QTest::newRow("too long for a link") << "long" << NotADatabase;
        QTest::newRow("planner there") << "there" << FileExists;
        QTest::newRow("no server") << "no server" << BrokenConnection;
        QTest::newRow("no permission") << "no permission" << ReadOnlyFile;
        QTest::newRow("a text that no server takes") << "zero" << TypeMismatch;
        QTest::newRow("no room for the link") << "no room" << InputOutput;
    }

    void WhatCannotBeMovedStaysAsItWas()
    {
        QFETCH(QString, hindrance);
        QFETCH(int, error);
        TestServer& server = TestServer::Get();
        OtherProgram other;
        if (hindrance == u"open") other.Open(m_path, false);
        if (hindrance == u"password") m_uri.replace("ann@"_L1, "ann:word@"_L1);
        if (hindrance == u"long") m_uri += "&sslrootcert=/"_L1 + QString(250, QChar(0x20AC));
        if (hindrance == u"there") {
            const QString first = m_folder->filePath(u"first.mdb"_s);
            DBEngine::CreateDatabase(first, {}).Close();
            DBEngine::MoveToServer(first, m_uri);
        }
        if (hindrance == u"no server") m_uri = server.TcpUri(m_planner, 1);
        if (hindrance == u"no permission") {
            server.Ask(u"CREATE ROLE visitor LOGIN"_s);
            m_uri.replace("ann@"_L1, "visitor@"_L1);
        }
        if (hindrance == u"zero")
            Ask(m_path, "UPDATE \"QMT Table\" SET qmtDate = 'a' || char(0) || 'b' WHERE \"record id\" = 300");
        const QStringList tables = TablesOnServer();
        const QStringList files = Files();
        const Notes notes = NotesIn(m_path);
        const QByteArray content = Content(m_path);
        std::optional<FullDisk> full;
        if (hindrance == u"no room") full.emplace(200000);
        QString text;
        const int raised = Move(&text);
        full.reset();
        QVERIFY2(raised == error, qPrintable(QString::number(raised) + text));
        QVERIFY(Content(m_path) == content);
        QVERIFY(NotesIn(m_path) == notes);
        QCOMPARE(Files(), files);
        QCOMPARE(TablesOnServer(), tables);
    }

    void KilledAtAnyMomentThePlannerIsWhole()
    {
        const Notes notes = NotesIn(m_path);
        const QByteArray content = Content(m_path);
        int change = 1;
        const auto move = [&] {
            m_uri = TestServer::Get().Uri(u"killed%1"_s.arg(change));
            return KilledBeforeChange(change, [this] { DBEngine::MoveToServer(m_path, m_uri); });
        };
        for (; move(); ++change) {
            const bool isLink = Content(m_path).startsWith("Orrelin planner link 1\n");
            if (isLink) DBEngine::OpenDatabase(m_path).SaveToFile(m_back);
            QVERIFY2(NotesIn(isLink ? m_back : m_path) == notes, qPrintable(QString::number(change)));
            QFile::remove(m_back);
            SetContent(m_path, content);
        }
        QVERIFY(change > 8);
        QCOMPARE(ErrorOf([&] { DBEngine::OpenDatabase(m_path); }), 0);
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(MovingTest)
#include "movingtest.moc"
