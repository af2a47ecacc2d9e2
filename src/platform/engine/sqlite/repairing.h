// Repairs a planner in place: chooses the state to keep, keeps the old one and replaces it. As in DBEngine.
#pragma once

#include "platform/engine/repairreport.h"
#include "platform/engine/tabledef.h"

namespace repairing {
RepairReport Repair(const QString& path, const std::vector<TableDef>& tables);

// Whether a file that is no planner is a damaged one in which Repair finds notes. Changes nothing.
bool FindsPlanner(const QString& path, const std::vector<TableDef>& tables);
} // namespace repairing
