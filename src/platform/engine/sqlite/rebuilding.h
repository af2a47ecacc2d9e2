// Writing what was salvaged into a new planner.
#pragma once

#include "platform/engine/repairreport.h"
#include "platform/engine/sqlite/salvage.h"

namespace rebuilding {
// Into an empty file, synced and checked. Every row that was found by way of its tree comes before all loose ones; of
// two with one id or one unique key the first counts. DiskFull, InputOutput.
std::vector<RepairReport::Table> Write(const std::vector<salvage::Table>& tables, const QString& path);
} // namespace rebuilding
