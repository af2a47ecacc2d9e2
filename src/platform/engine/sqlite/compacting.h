// Making a planner compact, and putting one planner into another's place. Meaning and errors as in DBEngine.
#pragma once

#include "platform/engine/tabledef.h"

namespace compacting {
QStringList Compact(const QString& from, const QString& to, const std::vector<TableDef>& expected);
QString Replace(const QString& scratch, const QString& target);

// Copies a planner that nobody has open into an existing file, and looks at all of the copy. 3343, 3026, 3043.
void CopyWhole(const QString& planner, const QString& to);
} // namespace compacting
