#include "platform/engine/explaining.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/enginerefusals.h"
#include "platform/engine/storekinds.h"

#include <QFileInfo>

namespace {
bool IsDamagedPlanner(const QString& path, const std::vector<TableDef>& tables)
{
    if (!path.endsWith(".mdb"_L1, Qt::CaseInsensitive)) return false;
    try {
        const auto finds = KindOf(path).FindsPlanner;
        return finds && finds(path, tables);
    } catch (const RunTimeError&) {
        return false; // the first error says more
    }
}
} // namespace

namespace explaining {
RunTimeError Explained(const RunTimeError& error, const QString& path, const std::vector<TableDef>& tables)
{
    if (error.Number != engineerrors::NotADatabase || !IsDamagedPlanner(path, tables)) return error;
    return engineerrors::DamagedError(QFileInfo(path).fileName());
}
} // namespace explaining
