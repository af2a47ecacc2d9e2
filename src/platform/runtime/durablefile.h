// Files that are on disk whole or not at all, and locks that end with their holder.
#pragma once

#include "platform/runtime/descriptor.h"

#include <QByteArray>
#include <QString>

#include <memory>

// Replaces the file. True: all of it is on disk under its name. If the drive cannot sync folders, a power cut may still
// leave the old file. False: the file is unchanged, and reason says why.
bool WriteDurably(const QString& path, const QByteArray& bytes, QString* reason = nullptr);

// A lock on a file of its own, created as needed. The file is never removed, or two programs could lock two files of
// the same name. The lock ends with the process or the computer.
class FileLock
{
public:
    // Null while the lock is held, also by this program, or if the file cannot be opened for writing. A drive without
    // locks grants it to everybody.
    static std::unique_ptr<FileLock> Try(const QString& path);

private:
    explicit FileLock(Descriptor file) : m_file(std::move(file)) {}
    Descriptor m_file;
};
