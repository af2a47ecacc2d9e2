// The session bus, for whatever speaks to the desktop or hears from it.
#pragma once

// Whether QDBusConnection::sessionBus() leads anywhere. Never starts a bus.
bool HasSessionBus();
