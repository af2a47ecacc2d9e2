// Locks of the sessions of a server on the planner as a whole, and on its records: the server's advisory locks, which
// end with their session. Record 0 of the table that marks the planner is the planner itself.
#pragma once

#include "platform/engine/postgres/postgresconnection.h"

#include <vector>

namespace advisorylocks {
// What the server's function of this name says of the lock.
bool Call(PostgresConnection& connection, QLatin1StringView function, const RecordName& name);
// "user 'ann' on machine 'desk3'", from the label of a session that holds it and is none of these processes of the
// server.
QString HolderOf(PostgresConnection& connection, const RecordName& name, const QStringList& exceptOf = {});
} // namespace advisorylocks

// How a planner is open. The opens of one process do not exclude each other; the latest one's mode is that of all of
// them, as it is for planners in files.
class OpenMode
{
public:
    OpenMode(PostgresConnection& connection, bool exclusive) : m_connection(connection), m_exclusive(exclusive) {}
    ~OpenMode() { Leave(); }
    OpenMode(const OpenMode&) = delete;
    OpenMode& operator=(const OpenMode&) = delete;

    // In each new session. The id is the planner's. InUse, whose text names a holder.
    void Enter(const QString& id, const RecordName& planner, const QString& shownName);
    void Leave();                             // the open before it gets its own mode back
    void Forget() { m_held = Held::Nothing; } // the session is over

private:
    enum class Held
    {
        Nothing,
        Shared,
        Exclusive
    };
    using Opens = std::vector<OpenMode*>; // the latest one last

    static std::shared_ptr<Opens> OpensOf(const QString& id);
    static bool Settle(Opens opens); // a copy: one whose session is over enters anew meanwhile
    bool Become(Held wanted);
    bool Ask(QLatin1StringView function);

    PostgresConnection& m_connection;
    const bool m_exclusive;
    Held m_held = Held::Nothing;
    std::shared_ptr<Opens> m_opens; // of this planner in this process, once entered
    RecordName m_planner;
};
