// Any bytes at all as a journal of unsaved notes: nothing may crash or hang, and what is taken is what was written. The
// entry is the one that libFuzzer calls.
#include "fuzz/fuzztarget.h"
#include "notes/journalfile.h"

#include <QCryptographicHash>

namespace {
// A changed journal has no right sum, and would be refused before anything of it is looked at.
QByteArray WithRightSum(const QByteArray& content)
{
    return "Orrelin journal 1\n" + QCryptographicHash::hash(content, QCryptographicHash::Sha256) + content;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    Require(!journalfile::Decode(bytes), "a wrong sum is seen");
    const auto notes = journalfile::Decode(WithRightSum(bytes));
    if (!notes) return 0;
    const auto again = journalfile::Decode(journalfile::Encode(*notes));
    Require(again && journalfile::Encode(*again) == journalfile::Encode(*notes), "what is taken is what was written");
    return 0;
}
