#include "platform/profile/inistorage.h"

#include "platform/runtime/descriptor.h"
#include "platform/runtime/durablefile.h"

#include <QDeadlineTimer>
#include <QFileInfo>
#include <QThread>

#include <sys/stat.h>

#include <cerrno>
#include <fcntl.h>

namespace {
constexpr qint64 LargestFile = 64 * 1024 * 1024;
constexpr int LongestWait = 10000; // milliseconds; a busy disk takes seconds for a write

// The locked bytes of the lock file. A process that waits for the turn holds the queue, so that one that writes without
// pause cannot overtake it.
constexpr off_t Turn = 0;
constexpr off_t Queue = 1;

// Polls instead of F_OFD_SETLKW, since a stopped process could block that for ever.
bool WaitFor(const Descriptor& file, off_t byte, const QDeadlineTimer& until)
{
    while (!file.Lock(F_WRLCK, byte)) {
        // Network drives may lack locks; settings are saved there all the same.
        if (errno == ENOLCK || errno == EOPNOTSUPP || errno == ENOSYS || errno == EINVAL) return true;
        const bool isHeld = errno == EAGAIN || errno == EACCES || errno == EINTR;
        if (!isHeld || until.hasExpired()) return false;
        QThread::msleep(1);
    }
    return true;
}

// The lock belongs to the open file description, so it ends with the process. Its file is never removed, or two
// processes could lock two files of the same name.
bool Lock(const Descriptor& file)
{
    const QDeadlineTimer until(LongestWait);
    if (!file.IsOpen() || !WaitFor(file, Queue, until) || !WaitFor(file, Turn, until)) return false;
    file.Lock(F_UNLCK, Queue);
    return true;
}

// Follows links, also broken ones, so that all names of a file share one lock.
QString Resolved(QString path)
{
    for (int links = 0; links < 40 && QFileInfo(path).isSymLink(); ++links)
        path = QFileInfo(path).symLinkTarget();
    return path;
}
} // namespace

inistorage::Identity inistorage::IdentityOf(const QString& path)
{
    struct stat found = {};
    if (::stat(QFile::encodeName(path).constData(), &found) != 0) return {};
    return {found.st_dev, found.st_ino, found.st_size, found.st_mtim.tv_sec * 1'000'000'000LL + found.st_mtim.tv_nsec};
}

std::optional<QByteArray> inistorage::Read(const QString& path)
{
    struct stat found = {};
    // A drive that does not answer must not read as an empty file, which the next write would store.
    const bool isThere = ::stat(QFile::encodeName(path).constData(), &found) == 0;
    if (!isThere) return errno == ENOENT ? std::optional(QByteArray("")) : std::nullopt;
    // Opening a pipe would block.
    if (!S_ISREG(found.st_mode) || found.st_size > LargestFile) return std::nullopt;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    const QByteArray text = file.readAll();
    return file.error() == QFileDevice::NoError ? std::optional(text) : std::nullopt;
}

bool inistorage::Change(const QString& path, const std::function<std::optional<QByteArray>(const QByteArray&)>& change)
{
    const QString target = Resolved(path);
    const Descriptor lockFile(target + u".lock"_s, O_RDWR | O_CREAT, 0666);
    if (!Lock(lockFile)) return false;
    const std::optional<QByteArray> before = Read(target);
    const std::optional<QByteArray> after = before ? change(*before) : std::nullopt;
    return after && (*after == *before || WriteDurably(target, *after));
}
