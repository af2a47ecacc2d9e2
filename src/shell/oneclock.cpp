#include "shell/oneclock.h"

#include "platform/desktop/desktopcalls.h"
#include "platform/desktop/sessionbus.h"

#include <QCryptographicHash>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusReply>

#include <optional>
#include <utility>

namespace {
// Sessions of one person may share a bus. Nobody hears the other screen's clock.
QString ClockOf(const QString& planner)
{
    QByteArray place = planner.toUtf8();
    for (const char* screen : {"WAYLAND_DISPLAY", "DISPLAY"})
        place += '\n' + qgetenv(screen);
    const QByteArray hash = QCryptographicHash::hash(place, QCryptographicHash::Sha1).toHex();
    return oneclock::AnyClock() + u".P"_s + QString::fromLatin1(hash);
}
} // namespace

QString oneclock::AnyClock()
{
    return DesktopCalls::Name() + u".Clock"_s;
}

// If the bus fails, an alarm that rings twice is better than none.
bool oneclock::Claim(const QString& planner, QObject* context, const std::function<void()>& onLost)
{
    using Bus = QDBusConnectionInterface;
    if (!HasSessionBus()) return true;
    Bus* const bus = QDBusConnection::sessionBus().interface();
    const QString name = ClockOf(planner);
    QObject::connect(bus, &Bus::serviceUnregistered, context, [name, onLost](const QString& lost) {
        if (lost == name) onLost();
    });
    const auto answer = bus->registerService(name, Bus::DontQueueService, Bus::AllowReplacement);
    return !answer.isValid() || answer == Bus::ServiceRegistered;
}

// Only its first planner is taken from a clock, which may have started in the same moment. Later that clock goes on: it
// would not come back when the window has turned to another planner.
void oneclock::Hold(const QString& planner)
{
    static std::optional<QString> held;
    if (planner == held.value_or(QString())) return;
    if (held && !held->isEmpty()) ReleaseName(ClockOf(*held));
    const bool isFirst = !std::exchange(held, planner);
    if (!planner.isEmpty()) RequestName(ClockOf(planner), isFirst);
}
