#include "platform/engine/postgres/recordlocks.h"

#include "platform/engine/enginerefusals.h"
#include "platform/engine/sessionname.h"

namespace advisorylocks {
// The server's functions take signed numbers, its list of locks shows unsigned ones.
bool Call(PostgresConnection& connection, QLatin1StringView function, RecordLocks::Name name)
{
    return connection
        .AskOne("SELECT "_L1 + function + "($1::integer, $2::integer)"_L1,
                {static_cast<qint32>(name.table), name.record})
        .toBool();
}

QString HolderOf(PostgresConnection& connection, RecordLocks::Name name, const QStringList& exceptOf)
{
    const SqlRows holder = connection.Ask(
        u"SELECT who.application_name FROM pg_locks AS held JOIN pg_stat_activity AS who ON who.pid = held.pid "
        "WHERE held.locktype = 'advisory' AND held.objsubid = 2 AND held.granted AND held.pid <> ALL ($3::integer[]) "
        "AND held.database = (SELECT oid FROM pg_database WHERE datname = current_database()) "
        "AND held.classid = $1::oid AND held.objid = $2::oid LIMIT 1"_s,
        {qint64{name.table}, name.record, exceptOf});
    return sessionname::PersonOf(holder.empty() ? QString() : holder[0].Text(0));
}
} // namespace advisorylocks

void RecordLocks::Take(Name name)
{
    // The server grants a session its own lock once more, and another recordset of this planner would get it.
    const bool own = m_held.contains(name);
    if (!own && advisorylocks::Call(m_connection, "pg_try_advisory_lock"_L1, name)) {
        m_held.insert(name);
        return;
    }
    const QString holder = own ? sessionname::PersonOf(QString::fromStdString(sessionname::Label()))
                               : advisorylocks::HolderOf(m_connection, name, {});
    throw engineerrors::ErrorOf(engineerrors::LockedBy, holder);
}

bool RecordLocks::Holds(Name name) const
{
    return m_held.contains(name);
}

void RecordLocks::GiveBack(Name name)
{
    if (m_held.erase(name) == 0) return;
    try {
        advisorylocks::Call(m_connection, "pg_advisory_unlock"_L1, name);
    } catch (const RunTimeError&) {
        // Whatever ended the session has ended the lock. One that stays for another reason would shut others out.
        m_connection.Break();
    }
}
