#include "platform/runtime/descriptor.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace {
struct flock BytesFrom(off_t begin, off_t count, short type)
{
    struct flock lock = {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    lock.l_start = begin;
    lock.l_len = count;
    return lock;
}
} // namespace

Descriptor::Descriptor(const QString& path, int flags, mode_t mode)
    : m_number(::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC, mode))
{
}

Descriptor::~Descriptor()
{
    if (m_number >= 0) ::close(m_number);
}

bool Descriptor::Lock(short type, off_t begin, off_t count) const
{
    struct flock lock = BytesFrom(begin, count, type);
    return ::fcntl(m_number, F_OFD_SETLK, &lock) == 0;
}

bool Descriptor::IsLockedElsewhere(off_t begin, off_t count) const
{
    struct flock lock = BytesFrom(begin, count, F_WRLCK);
    return ::fcntl(m_number, F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

bool Descriptor::Sync() const
{
    // Some file systems have nothing to sync in a folder and report EINVAL.
    return ::fsync(m_number) == 0 || errno == EINVAL;
}
