// Any bytes as the lock file of an open planner: nothing crashes or hangs, reported names are short and of one line,
// and locks still work. libFuzzer's entry point.
#include "fuzz/fuzztarget.h"
#include "platform/engine/sqlite/sessiontable.h"
#include "platform/runtime/runtimeerror.h"

#include <QTemporaryDir>

#include <algorithm>
#include <unistd.h>

namespace {
constexpr plannerformat::HeldRecord Record{3, 7};
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
    ByteLocks theirs(path, 0600, ::getgid()), ours(path, 0600, ::getgid());
    Session other(theirs);
    other.TakeRecord(Record);
    theirs.Write(0, data, size);
    RequireReadable(HolderOf(ours, Record));
    Session own(ours);
    bool isRefused = false;
    try {
        own.TakeRecord(Record);
    } catch (const RunTimeError&) {
        isRefused = true;
    }
    Require(isRefused, "the lock is the truth, the name a label");
    other.GiveBackRecord(Record);
    own.TakeRecord(Record);
    Require(own.Holds(Record), "what was given back can be taken");
    return 0;
}
