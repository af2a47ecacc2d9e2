#include "powercut.h"

#include <sys/stat.h>
#include <sys/syscall.h>

#include <algorithm>
#include <fcntl.h>
#include <functional>
#include <limits>
#include <map>
#include <unistd.h>
#include <vector>

// All calls in this file bypass the wrappers of faultycalls.h.
namespace {
using FileId = std::pair<dev_t, ino_t>;

struct Change
{
    FileId of; // the file, or the folder of a name
    bool isName;
    std::function<void()> Undo;
};

std::string g_folder; // empty if nothing is watched
std::vector<Change> g_changes;
int g_kept = 0;

bool IsWatched(const char* path)
{
    return !g_folder.empty() && std::string_view(path).starts_with(g_folder);
}

FileId IdOf(const struct stat& status)
{
    return {status.st_dev, status.st_ino};
}

FileId FolderOf(const std::string& path)
{
    struct stat status = {};
    ::stat(path.substr(0, path.rfind('/')).c_str(), &status);
    return IdOf(status);
}

void Rename(const std::string& from, const std::string& to)
{
    ::syscall(SYS_renameat2, AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), 0);
}

// A separate descriptor, so that it does not affect the program's locks. It stays open: closing it could release them.
int OwnDescriptor(int file, const FileId& id)
{
    static std::map<FileId, int> s_own;
    const auto [own, isNew] = s_own.try_emplace(id, -1);
    const std::string path = "/proc/self/fd/" + std::to_string(file);
    if (isNew) own->second = int(::syscall(SYS_openat, AT_FDCWD, path.c_str(), O_RDWR | O_CLOEXEC, 0));
    return own->second;
}

void AddName(const char* path, std::function<void()> undo)
{
    g_changes.push_back({FolderOf(path), true, std::move(undo)});
}
} // namespace

namespace powercut {
void Watch(const std::string& folder)
{
    g_folder = folder;
}

void Write(int file, off_t at, size_t size)
{
    struct stat status = {};
    if (g_folder.empty() || ::fstat(file, &status) != 0 || !S_ISREG(status.st_mode)) return;
    const int own = OwnDescriptor(file, IdOf(status));
    std::string before(size_t(std::clamp<off_t>(status.st_size - at, 0, off_t(size))), '\0');
    before.resize(size_t(::syscall(SYS_pread64, own, before.data(), before.size(), at)));
    g_changes.push_back({IdOf(status), false, [own, at, before, size = status.st_size] {
                             ::syscall(SYS_pwrite64, own, before.data(), before.size(), at);
                             ::syscall(SYS_ftruncate, own, size);
                         }});
}

void Truncate(int file, off_t size)
{
    Write(file, size, size_t(std::numeric_limits<off_t>::max()));
}

void Truncate(const char* path)
{
    const int file = IsWatched(path) ? int(::syscall(SYS_openat, AT_FDCWD, path, O_RDWR | O_CLOEXEC, 0)) : -1;
    if (file >= 0) Truncate(file, 0);
}

std::string Keep(const char* path)
{
    if (!IsWatched(path)) return {};
    const std::string kept = g_folder + "/cut/" + std::to_string(++g_kept);
    return ::syscall(SYS_linkat, AT_FDCWD, path, AT_FDCWD, kept.c_str(), 0) == 0 ? kept : std::string();
}

void Made(const char* path)
{
    if (!IsWatched(path)) return;
    AddName(path, [path = std::string(path)] { ::syscall(SYS_unlinkat, AT_FDCWD, path.c_str(), 0); });
}

void Moved(const char* from, const char* to, const std::string& kept)
{
    if (!IsWatched(to)) return;
    AddName(to, [from = std::string(from), to = std::string(to), kept] {
        Rename(to, from);
        if (!kept.empty()) Rename(kept, to);
    });
}

void Removed(const char* path, const std::string& kept)
{
    if (!kept.empty()) AddName(path, [path = std::string(path), kept] { Rename(kept, path); });
}

void Synced(int file)
{
    struct stat status = {};
    if (::fstat(file, &status) == 0) std::erase_if(g_changes, [&](const Change& c) { return c.of == IdOf(status); });
}

void Lose(int file)
{
    struct stat status = {};
    if (::fstat(file, &status) != 0 || !S_ISREG(status.st_mode)) return;
    for (auto change = g_changes.rbegin(); change != g_changes.rend(); ++change)
        if (change->of == IdOf(status)) change->Undo();
    Synced(file);
}

void Cut(bool names)
{
    for (auto change = g_changes.rbegin(); change != g_changes.rend(); ++change)
        if (names || !change->isName) change->Undo();
}
} // namespace powercut
