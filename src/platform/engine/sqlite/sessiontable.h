// The table of sessions in the file of locks: who has the planner open, and which records he holds. Labels for
// messages; the truth are the locked bytes.
#pragma once

#include "platform/engine/sqlite/bytelocks.h"
#include "platform/engine/sqlite/plannerformat.h"

#include <vector>

// "user 'ann' on machine 'desk3'" of a living session that holds the record, or of any living one for table 0. "another
// user" where no entry tells. Waits some milliseconds for one, since an entry is written after its lock is granted.
QString HolderOf(const ByteLocks& locks, plannerformat::HeldRecord held);

// This program's own line in the table, from construction to destruction.
class Session
{
public:
    explicit Session(ByteLocks& locks); // 3050 if there are too many
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    bool Holds(plannerformat::HeldRecord held) const;
    // 3260, whose text names the holder.
    void TakeRecord(plannerformat::HeldRecord held);
    void GiveBackRecord(plannerformat::HeldRecord held);

private:
    void WriteHeld();

    ByteLocks& m_locks;
    int m_number;
    std::vector<plannerformat::HeldRecord> m_held;
};
