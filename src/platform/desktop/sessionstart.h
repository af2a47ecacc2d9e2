// Whether the desktop starts this program with the session: an entry in the person's folder of such entries.
#pragma once

#include <QString>

namespace sessionstart {
bool IsOn();
// The program's own file, with these words behind it. False: the entry could not be written or removed.
bool Set(bool on, const QString& words);
} // namespace sessionstart
