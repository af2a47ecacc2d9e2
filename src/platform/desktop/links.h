// Links that the desktop opens. A note may come from anywhere, so only harmless kinds of address are opened.
#pragma once

#include <QString>
#include <QUrl>

#include <functional>

namespace links {
inline std::function<bool(const QUrl&)> g_openerOfTest; // instead of the desktop, if set

// Whether the address is of the web, of mail or of a file on this machine. It is not looked up.
bool MayOpen(const QString& address);

// The address as it will be opened. It is ASCII, so that no letter can look like another, and cut if it is long.
QString Shown(const QString& address);

// False if the address must not be opened, names a program, or if the desktop has no program for it.
bool Open(const QString& address);
} // namespace links
