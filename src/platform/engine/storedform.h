// What every store of a planner writes in the same way.
#pragma once

#include <QString>

namespace storedform {
inline const QString IdColumn = QStringLiteral("record id");
inline const QString DateFormat = QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz"); // what a clock on the wall shows: no zone
} // namespace storedform
