// Any bytes at all as the file of locks beside a planner, while somebody has it open: nothing may crash or hang, a name
// that is told is short and of one line, and records are locked and given back as ever. The entry is the one that
// libFuzzer calls.
#include "fuzz/fuzztarget.h"
#include "platform/engine/sqlite/plannerformat.h"
#include "platform/engine/sqlite/sessiontable.h"

#include <QTemporaryDir>

#include <algorithm>
#include <unistd.h>

namespace {
constexpr RecordName Record{3, 7};
constexpr qsizetype LongestName = plannerformat::UserBytes + plannerformat::MachineBytes + 40;

void RequireReadable(const QString& name)
{
    Require(!name.isEmpty() && name.size() <= LongestName, "a name is short");
    Require(std::ranges::all_of(name, [](QChar c) { return c.isPrint() || c.isSurrogate(); }), "a name is of one line");
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const QTemporaryDir folder;
    const QString path = folder.filePath(u"planner.ldb"_s);
    ByteLocks third(path, 0600, ::getgid());
    Session other(ByteLocks(path, 0600, ::getgid())), own(ByteLocks(path, 0600, ::getgid()));
    other.Take(Record);
    third.Write(0, data, size);
    RequireReadable(HolderOf(own.Locks(), Record));
    Require(!own.Take(Record), "the lock is the truth, the name a label");
    other.GiveBack(Record);
    Require(own.Take(Record), "what was given back can be taken");
    return 0;
}
