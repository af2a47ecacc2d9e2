// The desktop's tray.
#pragma once

class QObject;

// The desktop shows a tray, and the next start of the program can find this one over the session bus.
bool HasTray();

// Calls the slot or signal, without arguments, when the tray of the session bus has come up.
void WatchForTray(QObject* receiver, const char* slot);
