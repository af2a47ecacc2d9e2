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

    void WhatCannotBeMovedStaysAsItWas()
    {
        TestServer& server = TestServer::Get();
        std::optional<OtherProgram> other;
        std::optional<FullDisk> full;
        const std::tuple<const char*, std::function<void()>, int> rows[] = {
            {"open", [&] { other.emplace().Open(m_path, false); }, InUse},
            {"password", [&] { m_uri.replace("ann@"_L1, "ann:word@"_L1); }, NotADatabase},
            {"too long for a link", [&] { m_uri += "&sslrootcert=/"_L1 + QString(250, QChar(0x20AC)); }, NotADatabase},
            {"planner there",
             [&] {
                 const QString first = m_folder->filePath(u"first.mdb"_s);
                 DBEngine::CreateDatabase(first, {}).Close();
                 DBEngine::MoveToServer(first, m_uri);
             },
             FileExists},
            {"no server", [&] { m_uri = server.TcpUri(m_planner, 1); }, BrokenConnection},
            {"no permission",
             [&] {
                 server.Ask(u"CREATE ROLE visitor LOGIN"_s);
                 m_uri.replace("ann@"_L1, "visitor@"_L1);
             },
             ReadOnlyFile},
            {"a text that no server takes",
             [&] { Ask(m_path, "UPDATE \"QMT Table\" SET qmtDate = 'a' || char(0) || 'b' WHERE \"record id\" = 300"); },
             TypeMismatch},
            {"no room for the link", [&] { full.emplace(200000); }, InputOutput},
        };
        for (const auto& [name, hinder, error] : rows) {
            const InRow inRow(this, name);
            const bool isFull = QByteArrayView(name).startsWith("no room");
            if (!isFull) hinder();
            const QStringList tables = TablesOnServer(), files = Files();
            const Notes notes = NotesIn(m_path);
            const QByteArray content = Content(m_path);
            if (isFull) hinder();
            QString text;
            const int raised = ErrorOf([&] { DBEngine::MoveToServer(m_path, m_uri); }, &text);
            full.reset();
            other.reset();
            QVERIFY2(raised == error, qPrintable(QString::number(raised) + text));
            QVERIFY(Content(m_path) == content);
            QVERIFY(NotesIn(m_path) == notes);
            QCOMPARE(Files(), files);
            QCOMPARE(TablesOnServer(), tables);
        }
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(MovingTest)
#include "movingtest.moc"
