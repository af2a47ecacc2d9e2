#include "platform/engine/postgres/recordlocks.h"

#include "platform/engine/enginerefusals.h"
#include "platform/engine/postgres/postgresvalues.h"
#include "platform/engine/postgres/sessionname.h"

namespace advisorylocks {
// The server's functions take signed numbers, its list of locks shows unsigned ones.
PostgresConnection::Values ValuesOf(RecordLocks::Name name)
{
    return {std::to_string(static_cast<qint32>(name.table)), std::to_string(name.record)};
}

QString HolderOf(PostgresConnection& connection, RecordLocks::Name name, const QStringList& exceptOf)
{
    const pqxx::result holder = connection.Ask(
        "SELECT who.application_name FROM pg_locks AS held JOIN pg_stat_activity AS who ON who.pid = held.pid "
        "WHERE held.locktype = 'advisory' AND held.objsubid = 2 AND held.granted AND held.pid <> ALL ($3::integer[]) "
        "AND held.database = (SELECT oid FROM pg_database WHERE datname = current_database()) "
        "AND held.classid = $1::oid AND held.objid = $2::oid LIMIT 1",
        {std::to_string(name.table), std::to_string(name.record), ArrayOf(exceptOf)});
    return sessionname::Person(holder.empty() ? QString() : TextOf(holder[0][0]));
}
} // namespace advisorylocks

void RecordLocks::Take(Name name)
{
    // The server grants a session its own lock once more, and another recordset of this planner would get it.
    const bool own = m_held.contains(name);
    if (!own && m_connection.AskOne("SELECT pg_try_advisory_lock($1::integer, $2::integer)",
                                    advisorylocks::ValuesOf(name)) == u"t") {
        m_held.insert(name);
        return;
    }
    const QString holder = own ? sessionname::Person(QString::fromStdString(sessionname::Own()))
                               : advisorylocks::HolderOf(m_connection, name, {});
    engineerrors::RaiseRecordLocked(holder);
}

bool RecordLocks::Holds(Name name) const
{
    return m_held.contains(name);
}

void RecordLocks::GiveBack(Name name)
{
    if (m_held.erase(name) == 0) return;
    try {
        m_connection.Ask("SELECT pg_advisory_unlock($1::integer, $2::integer)", advisorylocks::ValuesOf(name));
    } catch (const RunTimeError&) {
        // Whatever ended the session has ended the lock. One that stays for another reason would shut others out.
        m_connection.Break();
    }
}
