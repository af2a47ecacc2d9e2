// Opens links by the desktop.
#pragma once

#include <QString>
#include <QUrl>

#include <functional>

namespace links {
inline std::function<bool(const QUrl&)> g_openerOfTest; // instead of the desktop, if set

// False if the address must not be opened, names a program, or if the desktop has no program for it.
bool Open(const QString& address);
} // namespace links
