// Files that are on the disk whole or not at all, and locks on files that end with their holder.
#pragma once

#include "platform/runtime/descriptor.h"

#include <QByteArray>
#include <QString>

#include <memory>

// Replaces the file: when this returns true all of it is on the disk under its name, as far as the drive can sync a
// folder; where it cannot, a failing computer may leave the file as it was. Else the file is as it was, and the reason
// says why.
bool WriteDurably(const QString& path, const QByteArray& bytes, QString* reason = nullptr);

// A lock on a file of its own, which is made where there is none and is never removed: two programs could otherwise
// hold locks on two files of one name. It ends with the process, however that ends, and with the computer.
class FileLock
{
public:
    // Nothing while somebody else, this program included, has it, and where the file cannot be opened for writing. A
    // drive without locks gives it to everybody.
    static std::unique_ptr<FileLock> Try(const QString& path);

private:
    explicit FileLock(Descriptor file) : m_file(std::move(file)) {}
    Descriptor m_file;
};
