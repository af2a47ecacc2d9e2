// A file with locked bytes. Its one descriptor owns the locks, which end with it. They are open file description locks:
// closing another descriptor of the file does not release them, and two descriptors of one process exclude each other.
#pragma once

#include "platform/runtime/descriptor.h"

#include <QByteArray>
#include <QString>

#include <sys/types.h>

class ByteLocks
{
public:
    enum Mode
    {
        Shared,
        Exclusive
    };

    // Makes the file if it is missing, for the people who may use the planner. ReadOnlyFile, InputOutput.
    ByteLocks(const QString& path, mode_t mode, gid_t group);

    // False if another descriptor's lock conflicts. A lock held here changes to the mode. NoLocks if the file system
    // has no locks.
    bool TryLock(off_t byte, Mode mode);
    bool ChangeLock(off_t byte, Mode mode); // TryLock that returns false for any failure
    void Unlock(off_t byte);
    bool IsLockedElsewhere(off_t byte, off_t count = 1) const; // whether any of these bytes is locked

    QByteArray Read(off_t at, qsizetype size) const; // shorter at the end of the file
    void Write(off_t at, const void* data, std::size_t size);

private:
    void RefuseIfDatabase() const; // InputOutput

    QString m_path;
    Descriptor m_file;
};
