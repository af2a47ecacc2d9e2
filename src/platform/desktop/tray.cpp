#include "platform/desktop/tray.h"

#include "platform/desktop/sessionbus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QSystemTrayIcon>

namespace {
const QString Watcher = u"org.kde.StatusNotifierWatcher"_s, WatcherPath = u"/StatusNotifierWatcher"_s;

// The toolkit asks once and keeps the answer.
bool IsOnBus(int patience)
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(Watcher, WatcherPath, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    call.setArguments({Watcher, u"IsStatusNotifierHostRegistered"_s});
    call.setAutoStartService(false);
    const QVariantList answer = QDBusConnection::sessionBus().call(call, QDBus::Block, patience).arguments();
    return !answer.isEmpty() && answer.front().value<QDBusVariant>().variant().toBool();
}
} // namespace

bool HasTray(int patience)
{
    return HasSessionBus() && (IsOnBus(patience) || QSystemTrayIcon::isSystemTrayAvailable());
}

void WatchForTray(QObject* receiver, const char* slot)
{
    if (!HasSessionBus()) return;
    QDBusConnection::sessionBus().connect({}, WatcherPath, Watcher, u"StatusNotifierHostRegistered"_s, receiver, slot);
}
