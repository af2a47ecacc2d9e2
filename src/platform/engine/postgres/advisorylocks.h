// Locks of a server's sessions, on the planner as a whole and on its records. They are the server's advisory locks,
// which end with their session. Record 0 of the table that marks the planner stands for the planner itself.
#pragma once

#include "platform/engine/postgres/postgresconnection.h"

#include <vector>

namespace advisorylocks {
// The answer of the server's lock function of this name.
bool Call(PostgresConnection& connection, QLatin1StringView function, const RecordName& name);
// "user 'ann' on machine 'desk3'", from the label of a session that holds the lock. Ignores sessions of the given
// server processes.
QString HolderOf(PostgresConnection& connection, const RecordName& name, const QStringList& exceptOf = {});
} // namespace advisorylocks

// How a planner is open. The opens of one process do not exclude each other. The latest one's mode applies to all of
// them, as for planners in files.
class OpenMode
{
public:
    OpenMode(PostgresConnection& connection, bool exclusive) : m_connection(connection), m_exclusive(exclusive) {}
    ~OpenMode() { Leave(); }
    OpenMode(const OpenMode&) = delete;
    OpenMode& operator=(const OpenMode&) = delete;

    // Call this in each new session. The id is the planner's. InUse; the text names a holder.
    void Enter(const QString& id, const RecordName& planner, const QString& shownName);
    void Leave();                             // the previous open gets its own mode back
    void Forget() { m_held = Held::Nothing; } // call this when the session is over

private:
    enum class Held
    {
        Nothing,
        Shared,
        Exclusive
    };
    using Opens = std::vector<OpenMode*>; // the latest is last

    static std::shared_ptr<Opens> OpensOf(const QString& id);
    static bool Settle(Opens opens); // a copy, since an open without a session may enter again meanwhile
    bool Become(Held wanted);
    bool Ask(QLatin1StringView function);

    PostgresConnection& m_connection;
    const bool m_exclusive;
    Held m_held = Held::Nothing;
    std::shared_ptr<Opens> m_opens; // of this planner in this process; null before Enter
    RecordName m_planner;
};
