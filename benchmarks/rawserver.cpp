#include "rawserver.h"

#include <QUrl>
#include <QUrlQuery>

#include <pqxx/pqxx>

struct RawServer::Session
{
    explicit Session(const QString& address) : connection(address.toStdString()) {}
    pqxx::connection connection;
};

namespace {
// The database's own tools do not know the planner parameter.
QString WithoutPlanner(const QString& address)
{
    QUrl url(address);
    QUrlQuery query(url);
    query.removeQueryItem(u"planner"_s);
    url.setQuery(query);
    return url.toString(QUrl::FullyEncoded);
}

std::string ArrayOf(const QStringList& keys)
{
    return '{' + keys.join(u',').toStdString() + '}';
}
} // namespace

RawServer::RawServer(const QString& address) : m_session(std::make_unique<Session>(WithoutPlanner(address)))
{
    pqxx::connection& connection = m_session->connection;
    const QString planner = QUrlQuery(QUrl(address)).queryItemValue(u"planner"_s);
    pqxx::nontransaction(connection).exec0("SET search_path = orrelin_" + planner.toStdString());
    connection.prepare("read", R"(SELECT "qmtDate", "qmtText" FROM "QMT Table" WHERE "qmtDate" = ANY ($1::text[]))");
    connection.prepare("lock", R"(SELECT pg_try_advisory_lock(1), "qmtText" FROM "QMT Table" WHERE "qmtDate" = $1)");
    connection.prepare("write", R"(UPDATE "QMT Table" SET "qmtText" = $2 WHERE "qmtDate" = $1)");
    connection.prepare("unlock", "SELECT pg_advisory_unlock(1)");
}

RawServer::~RawServer() = default;

std::size_t RawServer::Read(const QStringList& keys)
{
    pqxx::nontransaction work(m_session->connection);
    return std::size_t(work.exec_prepared("read", ArrayOf(keys)).size());
}

std::size_t RawServer::ReadAll()
{
    pqxx::nontransaction work(m_session->connection);
    return std::size_t(work.exec(R"(SELECT "qmtDate", "qmtText" FROM "QMT Table")").size());
}

void RawServer::LockAndWrite(const QString& key, const QByteArray& note)
{
    pqxx::nontransaction work(m_session->connection);
    work.exec_prepared1("lock", key.toStdString());
    work.exec_prepared0("write", key.toStdString(), pqxx::binarystring(note.constData(), std::size_t(note.size())));
    work.exec_prepared1("unlock");
}
