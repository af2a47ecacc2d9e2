#include "platform/desktop/sessionbus.h"

#include <QDBusConnection>
#include <QFile>
#include <QStandardPaths>

// Only an address that is set is tried: without one the library would start a bus of its own.
bool HasSessionBus()
{
    const QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    const bool hasAddress = qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") || QFile::exists(runtime + u"/bus"_s);
    return hasAddress && QDBusConnection::sessionBus().isConnected();
}
