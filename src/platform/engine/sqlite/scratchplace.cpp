#include "platform/engine/sqlite/scratchplace.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/sqlite/openfiles.h"
#include "platform/engine/sqlite/wholefiles.h"
#include "platform/runtime/runtimeerror.h"

#include <QFile>
#include <QFileInfo>

namespace {
using namespace engineerrors;
using namespace wholefiles;
} // namespace

ScratchPlace::ScratchPlace(const QString& path, const QString& planner) : m_path(path), m_planner(planner)
{
    if (Exists(m_path) && RealPath(m_path) == RealPath(m_planner))
        throw RunTimeError{FileExists, u"'%1' lies where Compact makes its copies. Please give it another "
                                       "name first."_s.arg(m_path)};
    Take();
    if (Exists(m_path)) Clear();
    MarkAsOurs(true);
}

ScratchPlace::~ScratchPlace()
{
    if (Exists(m_planner)) ScratchFile::Remove(m_path);
    MarkAsOurs(false);
}

void ScratchPlace::Take()
{
    m_lock = FileLock::Try(Lock());
    // A folder that takes no lock takes no copy either, and says so then.
    if (!m_lock && QFileInfo(Lock()).isFile())
        throw RunTimeError{InUse, u"'%1' is in use: another Orrelin compacts a planner just now."_s.arg(m_path)};
}

// The mark outlives the program, so a copy under it was left by one that died. Where somebody has opened it since, it
// has a file of locks beside it and may hold notes of its own.
void ScratchPlace::Clear()
{
    const bool isOurs = QFileInfo(Lock()).size() > 0 && !Exists(LockFileOf(m_path));
    if (isOurs) {
        ScratchFile::Remove(m_path);
    } else {
        PutAside();
    }
}

void ScratchPlace::PutAside()
try {
    const auto claim = Exists(LockFileOf(m_path)) ? ClaimAlone(m_path) : nullptr;
    m_beside = FreeNameBeside(m_path, "kept"_L1);
    // The journal first, so that a planner of that name is never without it.
    if (Exists(JournalOf(m_path))) CopyToFree(JournalOf(m_path), JournalOf(m_beside), StatusOf(m_path));
    RenameToFree(m_path, m_beside);
    SyncFolderOf(m_path);
    Unlink(JournalOf(m_path));
} catch (const RunTimeError& error) {
    throw RunTimeError{error.Number, u"%1: %2"_s.arg(m_path, error.Description)};
}

// In what the lock's file holds.
void ScratchPlace::MarkAsOurs(bool ours) const
{
    QFile mark(Lock());
    if (mark.open(QIODevice::WriteOnly | QIODevice::Truncate) && ours) mark.write("made by Compact\n");
}
