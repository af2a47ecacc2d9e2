// Making a planner compact, and putting one planner into another's place. Meaning and errors as in DBEngine.
#pragma once

#include <QString>

namespace compacting {
void Compact(const QString& from, const QString& to);
void Replace(const QString& scratch, const QString& target);
} // namespace compacting
