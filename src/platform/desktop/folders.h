// The program's folders, created on first use. Folders that are filled by the program are called NAME.new until
// complete. Tests put all of them below a temporary folder.
#pragma once

#include <QString>

namespace folders {
QString ApplicationDirectory(); // user data: log, scratch files, icons
QString WindowsDirectory();     // user settings: PLANNER.INI, WIN.INI
QString MediaDirectory();       // tunes

QString IconsDirectory(); // pictures of the sidebar

// A file or folder that is shipped with the program, in any letter case: beside it or where it is installed; empty if
// missing. Tests have theirs in "shipped".
QString Shipped(const QString& name);

// The same for a helper program.
QString ShippedProgram(const QString& name);

// Puts all folders below root; an empty text restores the real ones.
void SetRootForTests(const QString& root);
} // namespace folders
