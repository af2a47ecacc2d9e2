// What messages say of a file that the engine has refused.
#pragma once

#include "platform/engine/tabledef.h"
#include "platform/runtime/runtimeerror.h"

namespace explaining {
// Where a file was refused as no planner (3343): that it is a damaged one, if its name ends in .mdb and Repair would
// find something in it; all of it is read for that. Else the error itself. The tables are those that Repair would
// expect.
RunTimeError Explained(const RunTimeError& error, const QString& path, const std::vector<TableDef>& tables);
} // namespace explaining
