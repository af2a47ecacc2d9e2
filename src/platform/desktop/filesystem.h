// Finds files by the program's lower-cased paths in a case-sensitive file system.
#pragma once

#include <QString>

namespace filesystem {
// The existing file for a path in any letter case; empty if there is none. Paths given to Remember come first, then the
// exact path. Otherwise each component is matched exactly, then ignoring case, with backtracking.
QString Find(const QString& path);

// The path for creating such a file: the folder as Find returns it, the last component unchanged. Empty if the folder
// does not exist.
QString PlaceFor(const QString& path);

// From now on the lower-cased form of this path finds exactly this file.
void Remember(const QString& exactPath);
void ForgetAll(); // forgets all remembered paths

// The name of an existing file (not a folder), or empty: the function Dir.
QString Dir(const QString& path);
} // namespace filesystem
