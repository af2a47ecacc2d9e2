#include "platform/engine/sqlite/bytelocks.h"

#include "platform/engine/engineerrors.h"
#include "platform/runtime/runtimeerror.h"

#include <QFileInfo>

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace {
[[noreturn]] void RaiseCannotOpen(const QString& path, int error)
{
    const bool forbidden = error == EACCES || error == EPERM || error == EROFS;
    const QString name = QFileInfo(path).fileName();
    throw RunTimeError{forbidden ? engineerrors::ReadOnlyFile : engineerrors::InputOutput,
                       u"Could not write '%1', which keeps the users of the planner apart: %2."_s.arg(
                           name, QString::fromLocal8Bit(std::strerror(error)))};
}
} // namespace

ByteLocks::ByteLocks(const QString& path, mode_t mode, gid_t group) : m_path(path)
{
    m_file = Descriptor(path, O_RDWR);
    if (m_file.IsOpen()) {
        RefuseIfDatabase();
        return;
    }
    m_file = Descriptor(path, O_RDWR | O_CREAT, 0600);
    if (!m_file.IsOpen()) RaiseCannotOpen(path, errno);
    // All users of the planner must be able to use its locks, whatever this user's mask says. Where the group is not
    // ours to give, the mode alone has to do.
    [[maybe_unused]] const int owned = ::fchown(m_file.Number(), static_cast<uid_t>(-1), group);
    ::fchmod(m_file.Number(), mode & 0666);
}

// Somebody may have given a planner the name that our lock file wants; its head must not become a table of sessions.
void ByteLocks::RefuseIfDatabase() const
{
    constexpr QByteArrayView Magic = "SQLite format 3";
    if (Read(0, Magic.size()) != Magic) return;
    throw RunTimeError{engineerrors::InputOutput,
                       u"'%1' is a database, but its name is that of the file which keeps the users of the "
                       "planner apart."_s.arg(QFileInfo(m_path).fileName())};
}

bool ByteLocks::TryLock(off_t byte, Mode mode)
{
    if (ChangeLock(byte, mode)) return true;
    if (errno == EAGAIN || errno == EACCES) return false;
    throw RunTimeError{
        engineerrors::NoLocks,
        u"Could not lock '%1': this drive keeps no locks (%2), so two users could write "
        "over each other's notes."_s.arg(QFileInfo(m_path).fileName(), QString::fromLocal8Bit(std::strerror(errno)))};
}

bool ByteLocks::ChangeLock(off_t byte, Mode mode)
{
    return m_file.Lock(mode == Exclusive ? F_WRLCK : F_RDLCK, byte);
}

void ByteLocks::Unlock(off_t byte)
{
    m_file.Lock(F_UNLCK, byte);
}

bool ByteLocks::IsLockedElsewhere(off_t byte, off_t count) const
{
    return m_file.IsLockedElsewhere(byte, count);
}

QByteArray ByteLocks::Read(off_t at, qsizetype size) const
{
    QByteArray data(size, '\0');
    const ssize_t got = ::pread(m_file.Number(), data.data(), static_cast<std::size_t>(size), at);
    return data.first(std::max<ssize_t>(got, 0));
}

void ByteLocks::Write(off_t at, const void* data, std::size_t size)
{
    // The lock is the truth and what is written a label: on a full disk the holder stays without a name.
    [[maybe_unused]] const ssize_t written = ::pwrite(m_file.Number(), data, size, at);
}
