#include "faultycalls.h"

#include "powercut.h"

#include <sys/stat.h>
#include <sys/syscall.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <fcntl.h>
#include <unistd.h>

namespace {
using faultycalls::Fault;

Fault g_fault = Fault::None;
bool g_isArmed = false;
int g_at = 0;
int g_calls = 0;
std::vector<int> g_syncs;

void End()
{
    if (g_fault != Fault::Kill) powercut::Cut(g_fault == Fault::PowerCut);
    ::raise(SIGKILL);
}

// The errno for this call, 0 for none.
int Due(bool canBeFull)
{
    if (!g_isArmed) return 0;
    const bool isIt = ++g_calls == g_at, isBehind = g_at > 0 && g_calls >= g_at;
    if (isIt && Ends(g_fault)) End();
    if ((isIt && g_fault == Fault::DiskFull) || (isBehind && g_fault == Fault::FullFromHere))
        return canBeFull ? ENOSPC : 0;
    if ((isIt && g_fault == Fault::BadDisk) || (isBehind && g_fault == Fault::BadFromHere)) return EIO;
    return 0;
}

int DueOn(int file)
{
    if (!g_isArmed) return 0;
    struct stat status = {};
    const bool isFile = ::fstat(file, &status) == 0 && (S_ISREG(status.st_mode) || S_ISDIR(status.st_mode));
    return isFile ? Due(true) : 0;
}

template <typename... Arguments>
long Call(int error, long number, Arguments... arguments)
{
    if (error == 0) return ::syscall(number, arguments...);
    errno = error;
    return -1;
}

size_t RoomFor(size_t size, int& error)
{
    const bool isPart = error == ENOSPC && g_fault == Fault::FullFromHere && g_calls == g_at && size > 1;
    if (isPart) error = 0;
    return isPart ? size / 2 : size;
}

ssize_t WriteAt(int file, const void* bytes, size_t size, off_t at)
{
    int error = DueOn(file);
    size = RoomFor(size, error);
    if (error == 0) powercut::Write(file, at, size);
    return Call(error, SYS_pwrite64, file, bytes, size, at);
}

int Truncate(int file, off_t size)
{
    const int error = DueOn(file);
    if (error == 0) powercut::Truncate(file, size);
    return int(Call(error, SYS_ftruncate, file, size));
}

int Sync(int file, long number)
{
    const int before = g_calls, error = DueOn(file);
    if (g_calls > before) g_syncs.push_back(g_calls);
    error == 0 ? powercut::Synced(file) : powercut::Lose(file);
    return int(Call(error, number, file));
}

int Rename(const char* from, const char* to, unsigned int flags)
{
    const int error = Due(true);
    const std::string kept = error == 0 ? powercut::Keep(to) : std::string();
    const int result = int(Call(error, SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, flags));
    if (result == 0) powercut::Moved(from, to, kept);
    return result;
}

// Only making or emptying a file counts as a change.
int Open(const char* path, int flags, mode_t mode)
{
    struct stat status = {};
    const bool isThere = ::stat(path, &status) == 0, isNameless = (flags & O_TMPFILE) == O_TMPFILE;
    const bool makes = !isThere && (flags & O_CREAT), empties = isThere && S_ISREG(status.st_mode) && (flags & O_TRUNC);
    const int error = makes || empties || isNameless ? Due(true) : 0;
    if (error == 0 && empties) powercut::Truncate(path);
    const int file = int(Call(error, SYS_openat, AT_FDCWD, path, flags, mode));
    if (file >= 0 && makes) powercut::Made(path);
    return file;
}

int OpenWith(const char* path, int flags, va_list rest)
{
    const bool hasMode = (flags & O_CREAT) || (flags & O_TMPFILE) == O_TMPFILE;
    return Open(path, flags, hasMode ? va_arg(rest, mode_t) : 0);
}
} // namespace

void faultycalls::Watch(const std::string& folder)
{
    powercut::Watch(folder);
}

void faultycalls::Arm(Fault fault, int at)
{
    g_fault = fault;
    g_at = at;
    g_calls = 0;
    g_isArmed = true;
}

const std::vector<int>& faultycalls::Syncs()
{
    return g_syncs;
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
    int error = DueOn(file);
    size = RoomFor(size, error);
    if (error == 0) powercut::Write(file, ::lseek(file, 0, SEEK_CUR), size);
    return Call(error, SYS_write, file, bytes, size);
}
ssize_t pwrite(int file, const void* bytes, size_t size, off_t at)
{
    return WriteAt(file, bytes, size, at);
}
ssize_t pwrite64(int file, const void* bytes, size_t size, off64_t at)
{
    return WriteAt(file, bytes, size, at);
}
int fsync(int file)
{
    return Sync(file, SYS_fsync);
}
int fdatasync(int file)
{
    return Sync(file, SYS_fdatasync);
}
int ftruncate(int file, off_t size) noexcept
{
    return Truncate(file, size);
}
int ftruncate64(int file, off64_t size) noexcept
{
    return Truncate(file, size);
}
int open(const char* path, int flags, ...)
{
    va_list rest;
    va_start(rest, flags);
    const int file = OpenWith(path, flags, rest);
    va_end(rest);
    return file;
}
int open64(const char* path, int flags, ...)
{
    va_list rest;
    va_start(rest, flags);
    const int file = OpenWith(path, flags, rest);
    va_end(rest);
    return file;
}
// Gives a name to a file made without one.
int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept
{
    const int result = int(Call(Due(true), SYS_linkat, fromFolder, from, toFolder, to, flags));
    if (result == 0) powercut::Made(to);
    return result;
}
int rename(const char* from, const char* to) noexcept
{
    return Rename(from, to, 0);
}
// The program's paths are all absolute.
int renameat2(int, const char* from, int, const char* to, unsigned int flags) noexcept
{
    return Rename(from, to, flags);
}
int unlink(const char* path) noexcept
{
    const int error = Due(false);
    const std::string kept = error == 0 ? powercut::Keep(path) : std::string();
    const int result = int(Call(error, SYS_unlinkat, AT_FDCWD, path, 0));
    if (result == 0) powercut::Removed(path, kept);
    return result;
}
int mkdir(const char* path, mode_t mode) noexcept
{
    return int(Call(Due(true), SYS_mkdirat, AT_FDCWD, path, mode));
}
}
