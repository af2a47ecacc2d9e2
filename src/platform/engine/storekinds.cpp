#include "platform/engine/storekinds.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/jet/jetfile.h"
#include "platform/engine/postgres/plannerlink.h"
#include "platform/engine/sqlite/compacting.h"
#include "platform/engine/sqlite/openfiles.h"
#include "platform/engine/sqlite/repairing.h"
#include "platform/engine/sqlite/sqlitefile.h"
#include "platform/engine/sqlite/wholefiles.h"
#include "platform/runtime/runtimeerror.h"

#include <QFileInfo>

#include <algorithm>
#include <array>

namespace {
constexpr qsizetype HeadSize = 64;

// The last row takes what no other one recognises.
constexpr std::array Kinds = {
    StoreKind{plannerlink::IsLink, plannerlink::Refusal, plannerlink::Open, plannerlink::Delete, nullptr, nullptr,
              nullptr, nullptr, plannerlink::Address, nullptr},
    StoreKind{jetfile::IsJet, jetfile::Refusal, nullptr, sqlitefile::Delete, sqlitefile::Claim, jetfile::Compact,
              jetfile::Replace, nullptr, nullptr, nullptr},
    StoreKind{[](QByteArrayView) { return true; }, u"", sqlitefile::Open, sqlitefile::Delete, sqlitefile::ClaimPlanner,
              compacting::Compact, compacting::Replace, repairing::Repair, nullptr, repairing::FindsPlanner},
};
} // namespace

const StoreKind& KindOf(const QString& path)
{
    const struct stat status = wholefiles::StatusOf(path);
    if (!S_ISREG(status.st_mode) || OpenFile::IsOpenHere(status)) return Kinds.back();
    const QByteArray head = wholefiles::Head(path, HeadSize);
    return *std::ranges::find_if(Kinds, [&](const StoreKind& kind) { return kind.Recognise(head); });
}

void RaiseNotSupported(const StoreKind& kind, const QString& path)
{
    throw RunTimeError{engineerrors::NotSupported, QString::fromUtf16(kind.Refusal).arg(QFileInfo(path).fileName())};
}
