// Writes salvaged rows into a new planner.
#pragma once

#include "platform/engine/repairreport.h"
#include "platform/engine/sqlite/salvage.h"

namespace rebuilding {
// Writes into an empty file, synced and checked. Rows found through their tree come before loose ones. Of two rows with
// the same id or unique key, the first is kept. DiskFull, InputOutput.
std::vector<RepairReport::Table> Write(const std::vector<salvage::Table>& tables, const QString& path);
} // namespace rebuilding
