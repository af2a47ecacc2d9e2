#include "platform/desktop/desktopnotification.h"

#include "platform/desktop/desktopcalls.h"
#include "platform/desktop/sessionbus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QPointer>

#include <utility>

namespace {
const QString Service = u"org.freedesktop.Notifications"_s, Path = u"/org/freedesktop/Notifications"_s;

QDBusMessage CallOf(const QString& method, const QVariantList& arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(Service, Path, Service, method);
    call.setArguments(arguments);
    return call;
}

// The body is markup.
QVariantList Arguments(uint replaced, const QString& summary, const QString& body, const QStringList& actions)
{
    constexpr int Never = 0; // it expires
    const QVariantMap hints = {{u"desktop-entry"_s, DesktopCalls::Name()}, {u"category"_s, u"x-alarm"_s}};
    return {u"Orrelin"_s, replaced, DesktopCalls::Name(), summary, body.toHtmlEscaped(), actions, hints, Never};
}
} // namespace

void DesktopNotification::Show(const QString& summary, const QString& body, const QStringList& actions)
{
    if (!HasSessionBus()) return;
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.connect(Service, Path, Service, u"ActionInvoked"_s, this, SLOT(TakeAction(uint, QString)));
    bus.connect(Service, Path, Service, u"ActivationToken"_s, this, SLOT(TakeToken(uint, QString)));
    auto* reply =
        new QDBusPendingCallWatcher(bus.asyncCall(CallOf(u"Notify"_s, Arguments(m_id, summary, body, actions))));
    // Also if the window has been closed meanwhile: then nobody wants the message any more.
    QObject::connect(reply, &QDBusPendingCallWatcher::finished, reply, [reply, shown = QPointer(this)] {
        const QDBusPendingReply<uint> id = *reply;
        reply->deleteLater();
        if (id.isError()) return;
        if (shown) {
            if (shown->m_id != id.value()) shown->Close();
            shown->m_id = id.value();
        } else
            QDBusConnection::sessionBus().send(CallOf(u"CloseNotification"_s, {id.value()}));
    });
}

void DesktopNotification::Close()
{
    if (const uint id = std::exchange(m_id, 0); id != 0)
        QDBusConnection::sessionBus().send(CallOf(u"CloseNotification"_s, {id}));
}

void DesktopNotification::TakeAction(uint id, const QString& action)
{
    if (m_id == 0 || id != m_id) return;
    Close(); // not every desktop does so itself
    Q_EMIT Chosen(action);
}

// It comes before the action. The toolkit reads it from the environment when a window is brought to the front.
void DesktopNotification::TakeToken(uint id, const QString& token)
{
    if (m_id != 0 && id == m_id) qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
}
