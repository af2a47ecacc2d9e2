// Whether the program can go on in the desktop's tray.
#pragma once

#include "platform/desktop/desktopcalls.h"

#include <QSystemTrayIcon>

// The desktop shows a tray, and the next start of the program can find this one over the session bus.
inline bool HasTray()
{
    return HasSessionBus() && QSystemTrayIcon::isSystemTrayAvailable();
}
