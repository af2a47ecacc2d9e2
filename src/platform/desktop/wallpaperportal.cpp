// The desktop's portal: a bus service that may ask the user and reports the result by a signal. It cannot remove a
// picture.
#include "platform/desktop/sessionbus.h"
#include "platform/desktop/wallpaperbackend.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QDBusUnixFileDescriptor>
#include <QEventLoop>
#include <QFile>
#include <QGuiApplication>
#include <QRandomGenerator>
#include <QTimer>
#include <QWindow>

#include <algorithm>

namespace {
const QString Service = u"org.freedesktop.portal.Desktop"_s;
const QString RequestInterface = u"org.freedesktop.portal.Request"_s;
constexpr int CallTime = 2000; // milliseconds for the service to accept the call
constexpr uint Granted = 0;

// Waits for the answer to a request in a loop that takes no clicks and keys.
class PortalRequest : public QObject
{
    Q_OBJECT

public:
    PortalRequest()
    {
        // The answer may precede the reply to the call, so the path is computed.
        m_bus.connect(Service, m_path, RequestInterface, u"Response"_s, this, SLOT(Response(uint, QVariantMap)));
        m_watcher.setConnection(m_bus);
        connect(&m_watcher, &QDBusServiceWatcher::serviceUnregistered, &m_loop, &QEventLoop::quit);
    }

    QString Token() const { return m_token; }

    bool Wait(const QDeadlineTimer& until)
    {
        QTimer::singleShot(std::chrono::milliseconds(std::max<qint64>(0, until.remainingTime())), &m_loop,
                           &QEventLoop::quit);
        if (!m_code) m_loop.exec(QEventLoop::ExcludeUserInputEvents);
        if (!m_code) m_bus.send(QDBusMessage::createMethodCall(Service, m_path, RequestInterface, u"Close"_s));
        return m_code == Granted;
    }

private Q_SLOTS:
    void Response(uint code, const QVariantMap&)
    {
        m_code = code;
        m_loop.quit();
    }

private:
    QDBusConnection m_bus = QDBusConnection::sessionBus();
    const QString m_token = u"orrelin%1"_s.arg(QRandomGenerator::global()->generate());
    const QString m_path =
        u"/org/freedesktop/portal/desktop/request/%1/%2"_s.arg(m_bus.baseService().mid(1).replace(u'.', u'_'), m_token);
    QEventLoop m_loop;
    QDBusServiceWatcher m_watcher{Service, m_bus, QDBusServiceWatcher::WatchForUnregistration};
    std::optional<uint> m_code;
};

// The window over which the service asks.
QString ParentWindow()
{
    const QWindow* window = QGuiApplication::focusWindow();
    const bool isX11 = QGuiApplication::platformName() == u"xcb";
    return window && isX11 ? u"x11:%1"_s.arg(window->winId(), 0, 16) : QString();
}

bool IsHere(const DesktopSession&)
{
    return HasSessionBus();
}

bool Show(const DesktopSession&, const DesktopPicture& picture, const QDeadlineTimer& until)
{
    QFile file(picture.Path);
    if (picture.Path == wallpaper::None || !file.open(QIODevice::ReadOnly)) return false;
    PortalRequest request;
    // Passes an open file, since the service refuses file URLs.
    QDBusMessage call = QDBusMessage::createMethodCall(Service, u"/org/freedesktop/portal/desktop"_s,
                                                       u"org.freedesktop.portal.Wallpaper"_s, u"SetWallpaperFile"_s);
    call.setArguments({ParentWindow(), QVariant::fromValue(QDBusUnixFileDescriptor(file.handle())),
                       QVariantMap{{u"handle_token"_s, request.Token()},
                                   {u"show-preview"_s, false},
                                   {u"set-on"_s, u"background"_s}}});
    const int patience = std::clamp(int(until.remainingTime()), 1, CallTime);
    const QDBusMessage reply = QDBusConnection::sessionBus().call(call, QDBus::Block, patience);
    return reply.type() == QDBusMessage::ReplyMessage && request.Wait(until);
}

} // namespace

const WallpaperBackend PortalWallpaper = {.IsHere = IsHere, .Show = Show, .AsksPerson = true};

#include "wallpaperportal.moc"
