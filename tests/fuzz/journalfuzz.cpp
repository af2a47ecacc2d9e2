// Any bytes as a journal of unsaved notes: nothing crashes or hangs, and accepted notes are exactly those written.
// libFuzzer's entry point.
#include "fuzz/fuzztarget.h"
#include "notes/journalfile.h"

#include <QCryptographicHash>

namespace {
// Without the right checksum, a changed journal would be refused before it is parsed.
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
