// Where things lie. Each folder is made when it is first asked for. Tests set all of them under one temporary folder.
#pragma once

#include <QString>

namespace folders {
QString ApplicationDirectory(); // the user's data folder of Orrelin: log, scratch files, icons
QString WindowsDirectory();     // the user's settings folder of Orrelin: PLANNER.INI, WIN.INI
QString MediaDirectory();       // tunes

// Puts all folders under the given one; an empty text goes back to the real ones.
void SetRootForTests(const QString& root);
} // namespace folders
