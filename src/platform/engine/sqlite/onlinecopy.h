// A copy of a planner that is open and stays so.
#pragma once

#include <QString>

class SqliteConnection;

// All that the planner at `path` holds at this moment, on the disk under `to`, which is replaced as a whole. Others
// read on meanwhile; who writes waits while a part is copied. 3186 if others do not let it through, 3343 if the copy
// is damaged, 3026, 3043: then `to` is as it was.
void CopyOnline(SqliteConnection& source, const QString& path, const QString& to);
