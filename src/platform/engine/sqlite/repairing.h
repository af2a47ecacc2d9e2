// Repairing a planner in place: what is to be kept, which state of it counts, and the exchange. As in DBEngine.
#pragma once

#include "platform/engine/repairreport.h"
#include "platform/engine/tabledef.h"

namespace repairing {
RepairReport Repair(const QString& path, const std::vector<TableDef>& tables);

// Whether a file that is no planner as it stands is a damaged one in which Repair finds notes. Touches nothing.
bool FindsPlanner(const QString& path, const std::vector<TableDef>& tables);
} // namespace repairing
