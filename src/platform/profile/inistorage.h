// The file of an INI text: reads it, detects changes and replaces it as a whole.
#pragma once

#include <QByteArray>
#include <QString>

#include <sys/types.h>

#include <functional>
#include <optional>

namespace inistorage {
// Tells states of a file apart without reading it. All zero: there is no file.
struct Identity
{
    dev_t Device = 0;
    ino_t Inode = 0;
    off_t Size = 0;
    qint64 Modified = 0; // nanoseconds since the epoch
    bool operator==(const Identity&) const = default;
};

Identity IdentityOf(const QString& path);

// The file's bytes, "" if it does not exist. Empty if it cannot be read: a folder, a device, no permission, or over 64
// MB.
std::optional<QByteArray> Read(const QString& path);

// Replaces the file's bytes by the result of the function, as one step for other processes. On failure, or if the
// function returns empty, the file is unchanged and false is returned. Permissions and links stay. Waits at most two
// seconds for another process.
bool Change(const QString& path, const std::function<std::optional<QByteArray>(const QByteArray&)>& change);
} // namespace inistorage
