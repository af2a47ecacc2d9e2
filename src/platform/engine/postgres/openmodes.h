// Who has a planner open, and how: shared or exclusive locks of the sessions on the planner itself. The opens of one
// process do not exclude each other; the latest one's mode is that of all of them, as it is for planners in files.
#pragma once

#include "platform/engine/postgres/recordlocks.h"

#include <vector>

class OpenMode
{
public:
    OpenMode(PostgresConnection& connection, bool exclusive) : m_connection(connection), m_exclusive(exclusive) {}
    ~OpenMode() { Leave(); }
    OpenMode(const OpenMode&) = delete;
    OpenMode& operator=(const OpenMode&) = delete;

    // In each new session. The id is the planner's. 3045, whose text names a holder.
    void Enter(const QString& id, RecordLocks::Name planner, const QString& shownName);
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
    RecordLocks::Name m_planner{};
};
