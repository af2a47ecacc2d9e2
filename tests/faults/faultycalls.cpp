#include "faultycalls.h"

#include <sys/stat.h>
#include <sys/syscall.h>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {
using faultycalls::Fault;

Fault g_fault = Fault::None;
bool g_isArmed = false;
int g_at = 0;
int g_calls = 0;

// The error that the call is to have, 0 for none.
int Due(bool canBeFull)
{
    if (!g_isArmed) return 0;
    const bool isIt = ++g_calls == g_at, isBehind = g_at > 0 && g_calls >= g_at;
    if (isIt && g_fault == Fault::Kill) ::raise(SIGKILL);
    if ((isIt && g_fault == Fault::DiskFull) || (isBehind && g_fault == Fault::FullFromHere))
        return canBeFull ? ENOSPC : 0;
    if ((isIt && g_fault == Fault::BadDisk) || (isBehind && g_fault == Fault::BadFromHere)) return EIO;
    return 0;
}

int DueOn(int file)
{
    if (!g_isArmed) return 0;
    struct stat status = {};
    const bool isFile = ::fstat(file, &status) == 0 && S_ISREG(status.st_mode);
    return isFile ? Due(true) : 0;
}

template <typename... Arguments>
long Call(int error, long number, Arguments... arguments)
{
    if (error == 0) return ::syscall(number, arguments...);
    errno = error;
    return -1;
}
} // namespace

void faultycalls::Arm(Fault fault, int at)
{
    g_fault = fault;
    g_at = at;
    g_calls = 0;
    g_isArmed = true;
}

int faultycalls::Disarm()
{
    g_isArmed = false;
    return g_calls;
}

// As the C library declares them.
extern "C" {
ssize_t write(int file, const void* bytes, size_t size)
{
    return Call(DueOn(file), SYS_write, file, bytes, size);
}
ssize_t pwrite(int file, const void* bytes, size_t size, off_t at)
{
    return Call(DueOn(file), SYS_pwrite64, file, bytes, size, at);
}
ssize_t pwrite64(int file, const void* bytes, size_t size, off64_t at)
{
    return Call(DueOn(file), SYS_pwrite64, file, bytes, size, at);
}
int fsync(int file)
{
    return int(Call(DueOn(file), SYS_fsync, file));
}
int fdatasync(int file)
{
    return int(Call(DueOn(file), SYS_fdatasync, file));
}
int ftruncate(int file, off_t size) noexcept
{
    return int(Call(DueOn(file), SYS_ftruncate, file, size));
}
int ftruncate64(int file, off64_t size) noexcept
{
    return int(Call(DueOn(file), SYS_ftruncate, file, size));
}
int rename(const char* from, const char* to) noexcept
{
    return int(Call(Due(true), SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}
int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned int flags) noexcept
{
    return int(Call(Due(true), SYS_renameat2, fromFolder, from, toFolder, to, flags));
}
int unlink(const char* path) noexcept
{
    return int(Call(Due(false), SYS_unlinkat, AT_FDCWD, path, 0));
}
}
