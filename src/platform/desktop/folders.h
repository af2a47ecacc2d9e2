// Where things lie. Each folder is made when it is first asked for; those that the program brings contents for are made
// with them, and are called NAME.new until all of that is there. Tests set all of them under one temporary folder.
#pragma once

#include <QString>

namespace folders {
QString ApplicationDirectory(); // the user's data folder of Orrelin: log, scratch files, icons
QString WindowsDirectory();     // the user's settings folder of Orrelin: PLANNER.INI, WIN.INI
QString MediaDirectory();       // tunes

QString IconsDirectory(); // the small pictures of the sidebar

// A file or folder of this name, in any letter case, that comes with the program: beside it or where an installation
// puts it; empty if it is in neither place. Tests have theirs in the folder "shipped" instead.
QString Shipped(const QString& name);

// The same for a program that only ours starts.
QString ShippedProgram(const QString& name);

// Puts all folders under the given one; an empty text goes back to the real ones.
void SetRootForTests(const QString& root);
} // namespace folders
