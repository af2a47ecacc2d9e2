// Repairing a planner in place: what is to be kept, which state of it counts, and the exchange. As in DBEngine.
#pragma once

#include "platform/engine/repairreport.h"
#include "platform/engine/tabledef.h"

namespace repairing {
RepairReport Repair(const QString& path, const std::vector<TableDef>& tables);
} // namespace repairing
