#include "platform/runtime/durablefile.h"

#include <QFileInfo>
#include <QSaveFile>

#include <sys/file.h>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace {
void SyncFolder(const QString& folder)
{
    const int number = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (number < 0) return;
    ::fsync(number);
    ::close(number);
}
} // namespace

bool WriteDurably(const QString& path, const QByteArray& bytes, QString* reason)
{
    QSaveFile file(path);
    bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
    // The file object's own commit goes on if the bytes cannot be synced: a network drive may find out only then that
    // it is full.
    if (written && ::fsync(file.handle()) != 0) {
        if (reason) *reason = qt_error_string(errno);
        return false;
    }
    written = written && file.commit();
    if (!written && reason) *reason = file.errorString();
    if (written) SyncFolder(QFileInfo(path).path());
    return written;
}

std::unique_ptr<FileLock> FileLock::Try(const QString& path)
{
    const int number = ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (number < 0) return nullptr;
    if (::flock(number, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        ::close(number);
        return nullptr;
    }
    return std::unique_ptr<FileLock>(new FileLock(number));
}

FileLock::~FileLock()
{
    ::close(m_number);
}
