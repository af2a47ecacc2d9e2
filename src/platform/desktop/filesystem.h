// Paths as the program keeps them, lower-cased, against a file system that tells cases apart.
#pragma once

#include <QString>

namespace filesystem {
// The existing file that a path in any letter case means: the exact path if it exists; else, component by component,
// the exact name first and then any name that is equal without regard to case, going back where a branch leads
// nowhere. Paths remembered by Remember come first. Empty if there is none.
QString Find(const QString& path);

// Where a file of this path would be made: the folder as Find gives it, with the last component as it stands. Empty if
// the folder does not exist.
QString PlaceFor(const QString& path);

// A path just returned by a dialog: within this run its lower-cased form finds exactly this file.
void Remember(const QString& exactPath);
void ForgetAll(); // as at the start

// The file name of an existing file (not a folder), or empty: what Dir answers.
QString Dir(const QString& path);
} // namespace filesystem
