// Whether the program can go on in the desktop's tray.
#pragma once

#include "platform/desktop/desktopcalls.h"

#include <QDBusConnection>
#include <QSystemTrayIcon>

// The desktop shows a tray, and the next start of the program can find this one over the session bus.
inline bool HasTray()
{
    return HasSessionBus() && QSystemTrayIcon::isSystemTrayAvailable();
}

// Calls the slot or signal, without arguments, when the desktop's tray has come up.
inline void WatchForTray(QObject* receiver, const char* slot)
{
    if (!HasSessionBus()) return;
    QDBusConnection::sessionBus().connect({}, u"/StatusNotifierWatcher"_s, u"org.kde.StatusNotifierWatcher"_s,
                                          u"StatusNotifierHostRegistered"_s, receiver, slot);
}
