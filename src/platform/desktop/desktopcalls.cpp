#include "platform/desktop/desktopcalls.h"

#include "platform/desktop/sessionbus.h"

#include <QDBusConnection>
#include <QDBusMessage>

#include <utility>

namespace {
constexpr char StartedByCall[] = "ORRELIN_STARTED_BY_CALL"; // set by the service file

QString ObjectPath()
{
    return u"/org/orrelin/Orrelin"_s;
}

// A compositor needs the token of the click to bring the window to the front. The toolkit reads it from the
// environment.
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

bool DesktopCalls::ActivateAt(const QString& service, int patience)
{
    if (!HasSessionBus()) return false;
    QDBusMessage call =
        QDBusMessage::createMethodCall(service, ObjectPath(), u"org.freedesktop.Application"_s, u"Activate"_s);
    call.setArguments({QVariantMap{{u"activation-token"_s, qEnvironmentVariable("XDG_ACTIVATION_TOKEN")}}});
    call.setAutoStartService(false);
    return QDBusConnection::sessionBus().call(call, QDBus::Block, patience).type() == QDBusMessage::ReplyMessage;
}

void DesktopCalls::Listen()
{
    m_isStart = qEnvironmentVariableIsSet(StartedByCall);
    qunsetenv(StartedByCall); // child processes must not inherit it
    if (!HasSessionBus()) return;
    QDBusConnection::sessionBus().registerObject(ObjectPath(), this, QDBusConnection::ExportScriptableSlots);
    RequestName(Name());
}

void DesktopCalls::Activate(const QVariantMap& platformData)
{
    // The window is being shown anyway, minimised if so set.
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
