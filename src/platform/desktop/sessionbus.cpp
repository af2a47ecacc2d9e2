#include "platform/desktop/sessionbus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QFile>
#include <QStandardPaths>

namespace {
// Not by the library's functions, which wait.
void Send(const QString& method, const QVariantList& arguments)
{
    if (!HasSessionBus()) return;
    QDBusMessage call = QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                                       u"org.freedesktop.DBus"_s, method);
    call.setArguments(arguments);
    QDBusConnection::sessionBus().send(call);
}
} // namespace

// Only checks an address that is set: without one the library would start a bus.
bool HasSessionBus()
{
    const QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    const bool hasAddress = qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") || QFile::exists(runtime + u"/bus"_s);
    return hasAddress && QDBusConnection::sessionBus().isConnected();
}

void RequestName(const QString& name, bool isTaken)
{
    constexpr uint ReplaceExisting = 2; // as the bus numbers it
    Send(u"RequestName"_s, {name, isTaken ? ReplaceExisting : 0});
}

void ReleaseName(const QString& name)
{
    Send(u"ReleaseName"_s, {name});
}
