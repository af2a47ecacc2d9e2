// Locks on records, and on the planner as a whole: advisory locks of the server, which end with their session. A lock
// is named by two numbers, that of the table and that of the record; record 0 of the table that marks the planner is
// the planner itself.
#pragma once

#include "platform/engine/postgres/postgresconnection.h"

#include <set>

class RecordLocks
{
public:
    struct Name
    {
        quint32 table;
        qint32 record;
        auto operator<=>(const Name&) const = default;
    };

    explicit RecordLocks(PostgresConnection& connection) : m_connection(connection) {}

    void Take(Name name);        // 3260, whose text names the holder
    bool Holds(Name name) const; // false too when the session that took it is over
    void GiveBack(Name name);    // raises nothing
    void Forget() { m_held.clear(); }

private:
    PostgresConnection& m_connection;
    std::set<Name> m_held;
};

namespace advisorylocks {
// What the server's function of this name says of the lock.
bool Call(PostgresConnection& connection, QLatin1StringView function, RecordLocks::Name name);
// "user 'ann' on machine 'desk3'", from the label of a session that holds it and is none of these processes of the
// server.
QString HolderOf(PostgresConnection& connection, RecordLocks::Name name, const QStringList& exceptOf);
} // namespace advisorylocks
