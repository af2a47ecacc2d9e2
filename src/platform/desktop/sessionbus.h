// The desktop's session bus, QDBusConnection::sessionBus().
#pragma once

class QString;

// Whether it is connected. Never starts a bus.
bool HasSessionBus();

// Asks the bus for a name, which it gives when the name is free. With isTaken, at once if the owner lets others take
// it. ReleaseName also gives up the place in the queue for the name. Neither waits for the answer.
void RequestName(const QString& name, bool isTaken = false);
void ReleaseName(const QString& name);
