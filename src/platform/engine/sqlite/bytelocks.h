// A file whose bytes are locked: one descriptor, whose locks die with it. Open file description locks, so that closing
// another descriptor of the file leaves them alone and two descriptors of one process exclude each other too.
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

    // Makes the file if there is none, for the same people that may use the file it belongs to. ReadOnlyFile,
    // InputOutput.
    ByteLocks(const QString& path, mode_t mode, gid_t group);

    // False if another descriptor's lock is in the way; a lock held here is changed to the mode. NoLocks if the file
    // system keeps no locks.
    bool TryLock(off_t byte, Mode mode);
    bool ChangeLock(off_t byte, Mode mode); // TryLock that takes any failure for a refusal
    void Unlock(off_t byte);
    bool IsLockedElsewhere(off_t byte, off_t count = 1) const; // any of so many

    QByteArray Read(off_t at, qsizetype size) const; // shorter at the end of the file
    void Write(off_t at, const void* data, std::size_t size);

private:
    void RefuseIfDatabase() const; // InputOutput

    QString m_path;
    Descriptor m_file;
};
