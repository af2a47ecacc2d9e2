#include "shell/oneclock.h"

#include "platform/desktop/desktopcalls.h"
#include "platform/desktop/sessionbus.h"

#include <QCryptographicHash>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusReply>

#include <utility>

QString oneclock::AnyClock()
{
    return DesktopCalls::Name() + u".Clock"_s;
}

QString oneclock::ClockOf(const QString& planner)
{
    const QByteArray hash = QCryptographicHash::hash(planner.toUtf8(), QCryptographicHash::Sha1).toHex();
    return AnyClock() + u".P"_s + QString::fromLatin1(hash);
}

bool oneclock::Claim(const QString& planner)
{
    using Bus = QDBusConnectionInterface;
    if (!HasSessionBus()) return true;
    return QDBusConnection::sessionBus().interface()->registerService(ClockOf(planner), Bus::DontQueueService,
                                                                      Bus::AllowReplacement) == Bus::ServiceRegistered;
}

void oneclock::TakeOver(const QString& planner)
{
    static QString taken;
    if (planner == taken) return;
    const QString last = std::exchange(taken, planner);
    if (!last.isEmpty()) ReleaseName(ClockOf(last));
    if (!planner.isEmpty()) RequestName(ClockOf(planner), IsTakenFromOthers);
}
