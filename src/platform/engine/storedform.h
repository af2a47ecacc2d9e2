// What every store of a planner writes in the same way.
#pragma once

#include <QString>

namespace storedform {
inline const QString IdColumn = u"record id"_s;
inline const QString DateFormat = u"yyyy-MM-dd HH:mm:ss.zzz"_s; // what a clock on the wall shows: no zone
} // namespace storedform
