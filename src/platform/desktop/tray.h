// The desktop's tray.
#pragma once

class QObject;

// The desktop shows a tray, and the next start of the program can find this one over the session bus. Waits at most so
// many milliseconds for the tray's answer.
bool HasTray(int patience = 1000);

// Calls the slot or signal, without arguments, when the tray of the session bus has come up.
void WatchForTray(QObject* receiver, const char* slot);
