// A PostgreSQL server of the test program, in a temporary folder. It trusts the socket and asks for a password over
// TCP. It starts at its first use and ends with the program, even if that is killed.
#pragma once

#include "platform/engine/dbengine.h"
#include "platform/engine/postgres/serverline.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <netinet/in.h>
#include <sys/socket.h>

#include <csignal>
#include <unistd.h>

// Runs every test of the program once for each store, by the global "onServer".
inline void AddStores()
{
    QTest::addColumn<bool>("onServer");
    QTest::newRow("file") << false;
    QTest::newRow("server") << true;
}

class TestServer
{
public:
    static constexpr const char* Password = "secret' \\ word";
    static constexpr int LongestWait = 30000; // milliseconds, for a server or another process that stalls

    static TestServer& Get()
    {
        static TestServer server;
        return server;
    }

    // The address of the planner of this name, through the socket.
    QString Uri(const QString& planner) const
    {
        return u"postgresql://ann@/postgres?host=%1&planner=%2&port=%3"_s.arg(m_folder.path(), planner).arg(m_port);
    }
    QString TcpUri(const QString& planner, int port = 0) const
    {
        return u"postgresql://ann@127.0.0.1:%1/postgres?planner=%2"_s.arg(port ? port : m_port).arg(planner);
    }
    int Port() const { return m_port; }

    // Moves the planner to the server under a new name; the file becomes its link.
    QString Take(const QString& path)
    {
        const QString planner = u"test%1"_s.arg(++m_planners);
        DBEngine::MoveToServer(path, Uri(planner));
        return planner;
    }

    // Runs a statement as the administrator. Returns the first column of each row.
    QStringList Ask(const QString& sql) const
    {
        QStringList rows;
        for (const SqlRow& row : ServerLine(Connection(), nullptr).Ask(sql, {}, std::chrono::minutes(1)))
            rows += row.Text(0);
        return rows;
    }
    // Runs a file of statements.
    void Load(const QString& script) const
    {
        const int code = QProcess::execute(
            Program("psql"), {u"-qXv"_s, u"ON_ERROR_STOP=1"_s, u"-o"_s, u"/dev/null"_s, u"-f"_s, script, u"-h"_s,
                              m_folder.path(), u"-p"_s, QString::number(m_port), u"-U"_s, u"ann"_s, u"postgres"_s});
        if (code != 0) qFatal("The test's server does not take the statements");
    }
    // The server processes of all planners' connections. Each ends a moment after its program has closed.
    QStringList Sessions() const
    {
        return Ask(u"SELECT pid FROM pg_stat_activity WHERE application_name LIKE 'Orrelin%'"_s);
    }
    // Cuts the connections of all planners.
    void Cut() const
    {
        Signal(Sessions(), SIGTERM);
        while (!Sessions().isEmpty())
            QThread::msleep(5);
    }

    // Stops the server processes of all connections, like a hanging machine: the connections stay, and nothing is
    // answered.
    QStringList Freeze() const
    {
        const QStringList processes = Sessions();
        Signal(processes, SIGSTOP);
        return processes;
    }
    static void Signal(const QStringList& processes, int signal)
    {
        for (const QString& process : processes)
            ::kill(process.toInt(), signal);
    }

    void Start()
    {
        m_server.setProgram(u"setpriv"_s);
        m_server.setArguments(As({Program("postgres"), u"-D"_s, m_folder.filePath(u"data"_s), u"-k"_s, m_folder.path(),
                                  u"-p"_s, QString::number(m_port), u"-cfsync=off"_s, u"-clisten_addresses=127.0.0.1"_s,
                                  u"-cmax_connections=120"_s, u"-cshared_buffers=16MB"_s}));
        m_server.setStandardErrorFile(m_folder.filePath(u"log"_s));
        m_server.start();
        for (int attempt = 0; attempt < 2400; ++attempt) {
            QThread::msleep(25);
            try {
                const ServerLine started(Connection(), nullptr);
                return;
            } catch (const ServerLine::Error&) {
            }
        }
        qFatal("The test's server does not start");
    }
    // Starts as a read-only standby of another server.
    void StartAsReplica()
    {
        QFile(Mark()).open(QIODevice::WriteOnly);
        Start();
        QFile::remove(Mark());
    }
    void Stop(int signal = SIGINT)
    {
        ::kill(static_cast<pid_t>(m_server.processId()), signal);
        m_server.waitForFinished();
    }

private:
    TestServer() : m_folder(u"/tmp/orrelin-server-XXXXXX"_s), m_port(FreePort())
    {
        const QString password = m_folder.filePath(u"password"_s);
        QFile file(password);
        if (!file.open(QIODevice::WriteOnly) || file.write(Password) < 0) qFatal("No room for the test's server");
        file.close();
        if (::geteuid() == 0)
            for (const QString& path : {m_folder.path(), password})
                if (::chown(QFile::encodeName(path), Nobody, Nobody) != 0) qFatal("This root may not chown");
        QProcess init;
        init.setStandardOutputFile(QProcess::nullDevice());
        init.setStandardErrorFile(QProcess::nullDevice());
        init.start(u"setpriv"_s, As({Program("initdb"), u"-D"_s, m_folder.filePath(u"data"_s), u"-U"_s, u"ann"_s,
                                     u"--pwfile"_s, password, u"--auth-local=trust"_s, u"--auth-host=scram-sha-256"_s,
                                     u"-EUTF8"_s, u"--no-locale"_s, u"-N"_s}));
        if (!init.waitForFinished() || init.exitCode() != 0) qFatal("The test's server cannot be made");
        Start();
    }
    ~TestServer() { Stop(); }

    static constexpr uid_t Nobody = 65534;

    static QString Program(const char* name) { return u"/usr/lib/postgresql/15/bin/%1"_s.arg(QLatin1StringView(name)); }
    // The server refuses to run as root. It stops when this program ends, even if killed.
    static QStringList As(const QStringList& command)
    {
        QStringList words = {u"--pdeathsig"_s, u"INT"_s};
        if (::geteuid() == 0) words += {u"--reuid=65534"_s, u"--regid=65534"_s, u"--clear-groups"_s};
        return words + command;
    }
    static int FreePort()
    {
        const int probe = ::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        ::bind(probe, reinterpret_cast<sockaddr*>(&address), size);
        ::getsockname(probe, reinterpret_cast<sockaddr*>(&address), &size);
        ::close(probe);
        return ntohs(address.sin_port);
    }
    QString Mark() const { return m_folder.filePath(u"data/standby.signal"_s); }
    std::string Connection() const
    {
        return u"host=%1 port=%2 user=ann dbname=postgres"_s.arg(m_folder.path()).arg(m_port).toStdString();
    }

    QTemporaryDir m_folder;
    int m_port;
    int m_planners = 0;
    QProcess m_server;
};

// Opens a new database with this table, on the store of the global "onServer".
inline Database MakeStore(const QString& path, const TableDef& table)
{
    Database database = DBEngine::CreateDatabase(path, {});
    database.Append(table);
    QFETCH_GLOBAL(bool, onServer);
    if (!onServer) return database;
    database.Close();
    TestServer::Get().Take(path);
    return DBEngine::OpenDatabase(path);
}
