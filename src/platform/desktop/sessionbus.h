// The desktop's session bus, QDBusConnection::sessionBus().
#pragma once

class QString;

// Whether it is connected. Never starts a bus.
bool HasSessionBus();

// What else may happen to a name.
enum NameFlags : unsigned
{
    OnlyQueued = 0,
    LetsOthersTakeIt = 1,
    IsTakenFromOthers = 2
};

// Asks for a name of the bus. Neither waits for the answer. The bus gives a name that is taken when it comes free.
void RequestName(const QString& name, NameFlags flags);
void ReleaseName(const QString& name);
