// The table of sessions in the file of locks: the users that have the planner open, and the records that each holds.
// Labels for messages; the truth are the locked bytes.
#pragma once

#include "platform/engine/sql/sqlrows.h"
#include "platform/engine/sqlite/bytelocks.h"

// "user 'ann' on machine 'desk3'" of a living session that holds the record, or of any living one for table 0. "another
// user" where no entry tells. Waits some milliseconds for one, since an entry is written after its lock is granted.
QString HolderOf(const ByteLocks& locks, const RecordName& record);

// This program's own line in the table, and its locks on records. All of it ends with the file's descriptor.
class Session
{
public:
    explicit Session(ByteLocks locks); // NoLocks if there are too many

    bool Take(const RecordName& record); // false if another session has it
    void GiveBack(const RecordName& record);
    void WriteHeld(const std::vector<RecordName>& held);
    const ByteLocks& Locks() const { return m_locks; }

private:
    ByteLocks m_locks;
    int m_number = 0;
};
