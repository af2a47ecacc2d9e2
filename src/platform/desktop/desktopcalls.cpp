#include "platform/desktop/desktopcalls.h"

#include "platform/desktop/sessionbus.h"

#include <QDBusConnection>
#include <QDBusMessage>

#include <utility>

namespace {
constexpr char StartedByCall[] = "ORRELIN_STARTED_BY_CALL"; // set by the file of the service

// A compositor lets a window come to the front for the token of the click that asked for it; the toolkit looks for it
// here when it asks.
void TakeToken(const QVariantMap& platformData)
{
    for (const char* key : {"activation-token", "desktop-startup-id"}) {
        const QByteArray token = platformData.value(QLatin1StringView(key)).toString().toUtf8();
        if (token.isEmpty()) continue;
        qputenv("XDG_ACTIVATION_TOKEN", token);
        return;
    }
}
} // namespace

void DesktopCalls::Listen()
{
    m_isStart = qEnvironmentVariableIsSet(StartedByCall);
    qunsetenv(StartedByCall); // not for what the program starts
    if (!HasSessionBus()) return;
    QDBusConnection bus = QDBusConnection::sessionBus();
    const QString path = u'/' + Name().replace(u'.', u'/');
    bus.registerObject(path, this, QDBusConnection::ExportScriptableSlots);
    // The library's own way waits for the answer. No flags: who comes second stands in the bus's queue.
    QDBusMessage request = QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                                          u"org.freedesktop.DBus"_s, u"RequestName"_s);
    request.setArguments({Name(), 0u});
    bus.send(request);
}

void DesktopCalls::Activate(const QVariantMap& platformData)
{
    // The window is coming already, minimised if the settings say so.
    if (std::exchange(m_isStart, false)) return;
    TakeToken(platformData);
    Q_EMIT Called({});
}

void DesktopCalls::Open(const QStringList& uris, const QVariantMap& platformData)
{
    m_isStart = false;
    TakeToken(platformData);
    Q_EMIT Called(uris);
}

void DesktopCalls::ActivateAction(const QString& name, const QVariantList&, const QVariantMap&)
{
    sendErrorReply(QDBusError::InvalidArgs, u"Orrelin has no action '%1'."_s.arg(name));
}
