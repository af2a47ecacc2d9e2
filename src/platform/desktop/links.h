// Which links may be opened, and how they are shown. A note may come from anywhere, so only harmless kinds of address
// are opened. Knows only QtCore.
#pragma once

#include <QString>

namespace links {
// Whether the address is of the web, of mail or of a file on this machine. It is not looked up.
bool MayOpen(const QString& address);

// The address as it will be opened. It is ASCII, so that no letter can look like another, and cut if it is long.
QString Shown(const QString& address);
} // namespace links
