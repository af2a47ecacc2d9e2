#include "shell/trayrun.h"

#include "alarms/alarmfiles.h"
#include "alarms/trayclock.h"
#include "platform/controls/resources.h"
#include "platform/desktop/desktopcalls.h"
#include "platform/runtime/durablefile.h"
#include "platform/runtime/errortail.h"
#include "settings/settings.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QFile>

#include <unistd.h>
#include <vector>

namespace {
constexpr int Patience = 2000; // milliseconds
}

QStringList trayrun::RunClock(QApplication& application)
{
    const auto lock = FileLock::Try(alarmfiles::Running());
    if (!lock) return {};
    InitResources();
    QApplication::setQuitOnLastWindowClosed(false);
    QStringList next;
    const auto replace = [&](const QStringList& words) {
        if (QWidget* const ringing = QApplication::activeModalWidget()) return ringing->activateWindow(); // first
        next = QStringList(ShowWord) + words;
        QCoreApplication::exit();
    };
    TrayClock clock(Read(settings::FollowedPlanner));
    QObject::connect(&clock, &TrayClock::Wanted, &application,
                     [&](const QString& day) { replace(day.isEmpty() ? QStringList() : QStringList(day)); });
    QObject::connect(&clock, &TrayClock::Ended, [] { QCoreApplication::exit(); });
    DesktopCalls calls;
    QObject::connect(&calls, &DesktopCalls::Called, &application, replace);
    calls.Listen();
    application.exec();
    return next;
}

std::optional<QStringList> trayrun::WordsOfReturn()
{
    const QStringList words = QCoreApplication::arguments();
    const qsizetype at = words.indexOf(ShowWord);
    return at < 0 ? std::nullopt : std::optional(words.sliced(at + 1));
}

bool trayrun::HandedToClock()
{
    if (!QFile::exists(alarmfiles::Running()) || FileLock::Try(alarmfiles::Running())) return false;
    if (!HasSessionBus()) return false;
    QDBusMessage call = QDBusMessage::createMethodCall(DesktopCalls::Name(), DesktopCalls::Path(),
                                                       u"org.freedesktop.Application"_s, u"Activate"_s);
    call.setArguments({QVariantMap()});
    call.setAutoStartService(false);
    return QDBusConnection::sessionBus().call(call, QDBus::Block, Patience).type() == QDBusMessage::ReplyMessage;
}

void trayrun::Replace(const QStringList& words)
{
    QList<QByteArray> bytes = {"orrelin"};
    for (const QString& word : words)
        bytes += QFile::encodeName(word);
    std::vector<char*> arguments;
    for (QByteArray& one : bytes)
        arguments.push_back(one.data());
    arguments.push_back(nullptr);
    ::execv("/proc/self/exe", arguments.data());
}
