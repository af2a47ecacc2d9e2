#include "platform/engine/jet/reader/limits.h"

#include <sys/prctl.h>
#include <sys/resource.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <seccomp.h>

namespace {
constexpr rlim_t Seconds = 60;
constexpr rlim_t OwnMemory = rlim_t{256} << 20;

bool Limit(__rlimit_resource resource, rlim_t most)
{
    rlimit now = {};
    if (::getrlimit(resource, &now) != 0) return false;
    now.rlim_max = std::min(now.rlim_max, most);
    now.rlim_cur = now.rlim_max;
    return ::setrlimit(resource, &now) == 0;
}
} // namespace

bool LimitResources(std::size_t fileSize)
{
    // The file is in memory once, and its longest text in two more copies.
    return ::prctl(PR_SET_PDEATHSIG, SIGKILL) == 0 && Limit(RLIMIT_CPU, Seconds) && Limit(RLIMIT_FSIZE, 0) &&
           Limit(RLIMIT_CORE, 0) && Limit(RLIMIT_AS, OwnMemory + 4 * rlim_t{fileSize});
}

bool GiveUpTheSystem()
{
    const scmp_filter_ctx filter = ::seccomp_init(SCMP_ACT_ERRNO(EPERM));
    if (!filter) return false;
    bool complete = true;
    for (const int call : {SCMP_SYS(write), SCMP_SYS(brk), SCMP_SYS(mmap), SCMP_SYS(munmap), SCMP_SYS(mremap),
                           SCMP_SYS(madvise), SCMP_SYS(rt_sigreturn), SCMP_SYS(exit), SCMP_SYS(exit_group)})
        complete = ::seccomp_rule_add(filter, SCMP_ACT_ALLOW, call, 0) == 0 && complete;
    complete = complete && ::seccomp_load(filter) == 0;
    ::seccomp_release(filter);
    return complete;
}
