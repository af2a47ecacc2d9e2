#include "platform/runtime/durablefile.h"

#include <QFileInfo>
#include <QSaveFile>

#include <sys/file.h>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

bool WriteDurably(const QString& path, const QByteArray& bytes, QString* reason)
{
    QSaveFile file(path);
    bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
    // A full network drive may be noticed only by the sync, whose failure QSaveFile::commit() ignores.
    if (written && ::fsync(file.handle()) != 0) {
        if (reason) *reason = qt_error_string(errno);
        return false;
    }
    written = written && file.commit();
    if (!written && reason) *reason = file.errorString();
    if (written) Descriptor(QFileInfo(path).path(), O_RDONLY | O_DIRECTORY).Sync();
    return written;
}

std::unique_ptr<FileLock> FileLock::Try(const QString& path)
{
    Descriptor file(path, O_RDWR | O_CREAT, 0600);
    if (!file.IsOpen()) return nullptr;
    if (::flock(file.Number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return nullptr;
    return std::unique_ptr<FileLock>(new FileLock(std::move(file)));
}
