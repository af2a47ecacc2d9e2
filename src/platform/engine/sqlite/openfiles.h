// The planners that this process has open, known by device and inode. Their open mode is one lock a process: a second
// open changes it, where a second descriptor would be refused by the first.
#pragma once

#include "platform/engine/sqlite/bytelocks.h"

#include <sys/stat.h>

#include <functional>
#include <memory>

// The file of locks beside a planner, by a descriptor of its own. FileNotFound, ReadOnlyFile, InputOutput.
ByteLocks LocksBeside(const QString& planner);

// Keeps a planner from everybody, this program's own opens included, as long as the result lives; the path is the real
// one. Asked for twice it is shared, so that several steps can be made under one claim. InUse, NoLocks.
std::shared_ptr<ByteLocks> ClaimAlone(const QString& planner);

// One open of a planner, from construction to destruction.
class OpenFile
{
public:
    // Tells the owner whether its connection may keep the whole file to itself; must not raise.
    using KeepWhole = std::function<void(bool)>;

    // InUse, and then nothing has changed. The path is the real one of an existing file. Others of this process let go
    // of the file until Settle.
    OpenFile(const QString& planner, bool exclusive, KeepWhole keepWhole);
    ~OpenFile(); // the one opened before it, if any, gets its own mode back
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    // Whether this process has the planner open. The file may then be opened by no other means: to close it again would
    // drop the library's locks.
    static bool IsOpenHere(const struct stat& planner);

    void Settle(); // the open has come to its end: the mode is now this one's

private:
    struct Shared;
    std::shared_ptr<Shared> m_shared;
    bool m_exclusive;
    KeepWhole m_keepWhole;
};
