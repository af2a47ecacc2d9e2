// The planners that this process has open, by device and inode. Their open mode is one lock for the process: a second
// open changes it, where a second descriptor would conflict with the first.
#pragma once

#include "platform/engine/sqlite/bytelocks.h"

#include <sys/stat.h>

#include <functional>
#include <memory>

// The lock file beside a planner, with a separate descriptor. FileNotFound, ReadOnlyFile, InputOutput.
ByteLocks LocksBeside(const QString& planner);

// Keeps everybody, this program included, from opening a planner while the result lives. Takes the real path. A second
// claim shares the first, so that several steps can run under one claim. InUse, NoLocks.
std::shared_ptr<ByteLocks> ClaimAlone(const QString& planner);

// One open of a planner, for its life.
class OpenFile
{
public:
    // Called with whether the owner's connection may lock the whole file; must not raise.
    using KeepWhole = std::function<void(bool)>;

    // InUse; then nothing has changed. Takes the real path of an existing file. This process's other opens do not lock
    // the whole file until Settle.
    OpenFile(const QString& planner, bool exclusive, KeepWhole keepWhole);
    ~OpenFile(); // the previous open, if any, gets its own mode back
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    // Whether this process has the planner open. Then do not open the file in another way: closing it would release the
    // library's locks.
    static bool IsOpenHere(const struct stat& planner);

    void Settle(); // the opening has succeeded: its mode applies now

private:
    struct Shared;
    std::shared_ptr<Shared> m_shared;
    bool m_exclusive;
    KeepWhole m_keepWhole;
};
