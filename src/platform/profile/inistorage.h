// The file behind an INI text: reading it, knowing whether it has changed, and replacing it as a whole.
#pragma once

#include <QByteArray>
#include <QString>

#include <sys/types.h>

#include <functional>
#include <optional>

namespace inistorage {
// What tells one state of a file from another without reading it. All zero: there is no file.
struct Identity
{
    dev_t Device = 0;
    ino_t Inode = 0;
    off_t Size = 0;
    qint64 Modified = 0; // nanoseconds of the epoch
    bool operator==(const Identity&) const = default;
};

Identity IdentityOf(const QString& path);

// The bytes of the file, "" if there is none; empty if there is one that cannot be read: a folder, a device, no right,
// or over 64 MB.
std::optional<QByteArray> Read(const QString& path);

// Replaces the bytes of the file by what the function makes of them, as one step that other processes wait for: either
// all of it is on the disk at the end, or the file is as it was and false comes back. The function's empty result means
// false, too. Permissions stay, a link stays a link. Waits no longer than two seconds for another process.
bool Change(const QString& path, const std::function<std::optional<QByteArray>(const QByteArray&)>& change);
} // namespace inistorage
