#include "platform/engine/sqlite/openfiles.h"

#include "platform/engine/enginerefusals.h"
#include "platform/engine/sqlite/plannerformat.h"
#include "platform/engine/sqlite/sessiontable.h"
#include "platform/engine/sqlite/wholefiles.h"
#include "platform/runtime/runtimeerror.h"

#include <QFileInfo>

#include <sys/stat.h>

#include <map>
#include <vector>

namespace {
using Identity = std::pair<dev_t, ino_t>;

ByteLocks::Mode ModeOf(bool exclusive)
{
    return exclusive ? ByteLocks::Exclusive : ByteLocks::Shared;
}

[[noreturn]] void RaiseInUse(const QString& planner, const ByteLocks& locks)
{
    throw engineerrors::ErrorOf(engineerrors::InUseBy, QFileInfo(planner).fileName(), HolderOf(locks, {}));
}
} // namespace

struct OpenFile::Shared
{
    explicit Shared(const QString& planner) : locks(LocksBeside(planner)) {}

    void LetGo()
    {
        for (OpenFile* open : opens)
            open->m_keepWhole(false);
    }

    ByteLocks locks;
    std::vector<OpenFile*> opens; // the latest one last

    static std::weak_ptr<Shared>& Known(const struct stat& status);
    static std::shared_ptr<Shared> Of(const QString& planner);
};

std::weak_ptr<OpenFile::Shared>& OpenFile::Shared::Known(const struct stat& status)
{
    static std::map<Identity, std::weak_ptr<Shared>> known;
    return known[{status.st_dev, status.st_ino}];
}

std::shared_ptr<OpenFile::Shared> OpenFile::Shared::Of(const QString& planner)
{
    std::weak_ptr<Shared>& entry = Known(wholefiles::StatusOf(planner));
    std::shared_ptr<Shared> shared = entry.lock();
    if (!shared) entry = shared = std::make_shared<Shared>(planner);
    return shared;
}

ByteLocks LocksBeside(const QString& planner)
{
    const struct stat status = wholefiles::StatusOf(planner);
    return {wholefiles::LockFileOf(planner), status.st_mode, status.st_gid};
}

std::shared_ptr<ByteLocks> ClaimAlone(const QString& planner)
{
    // By path: the claim stands for the file of locks, and outlives the exchange of the planner beside it.
    static std::map<QString, std::weak_ptr<ByteLocks>> claims;
    std::weak_ptr<ByteLocks>& claim = claims[planner];
    if (auto held = claim.lock()) return held;
    // Its own descriptor, which this program's own opens refuse too.
    auto locks = std::make_shared<ByteLocks>(LocksBeside(planner));
    if (!locks->TryLock(plannerformat::OpenModeByte, ByteLocks::Exclusive)) RaiseInUse(planner, *locks);
    claim = locks;
    return locks;
}

bool OpenFile::IsOpenHere(const struct stat& planner)
{
    return !Shared::Known(planner).expired();
}

OpenFile::OpenFile(const QString& planner, bool exclusive, KeepWhole keepWhole)
    : m_shared(Shared::Of(planner)), m_exclusive(exclusive), m_keepWhole(std::move(keepWhole))
{
    // An exclusive mode that this process holds already is given up by Settle alone, so that a failing open cannot
    // lose it.
    const bool isFirst = m_shared->opens.empty();
    if ((isFirst || exclusive) && !m_shared->locks.TryLock(plannerformat::OpenModeByte, ModeOf(exclusive)))
        RaiseInUse(planner, m_shared->locks);
    m_shared->LetGo();
    m_shared->opens.push_back(this);
}

OpenFile::~OpenFile()
{
    std::erase(m_shared->opens, this);
    if (!m_shared->opens.empty()) m_shared->opens.back()->Settle();
}

void OpenFile::Settle()
{
    const bool granted = m_shared->locks.ChangeLock(plannerformat::OpenModeByte, ModeOf(m_exclusive));
    m_keepWhole(granted && m_exclusive && m_shared->opens.size() == 1);
}
