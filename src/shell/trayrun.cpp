#include "shell/trayrun.h"

#include "alarms/trayclock.h"
#include "platform/controls/resources.h"
#include "platform/desktop/desktopcalls.h"
#include "platform/desktop/folders.h"
#include "platform/desktop/sessionbus.h"
#include "platform/desktop/terminationsignals.h"
#include "platform/runtime/errortail.h"
#include "settings/settings.h"
#include "shell/oneclock.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDialog>
#include <QIcon>
#include <QSessionManager>
#include <QThread>

#include <functional>

namespace {
constexpr QLatin1StringView RunLiteral(" in TrayClock, RunClock");
constexpr int Patience = 5000, TimeToComeBack = 3000; // milliseconds

// Once its name is there, it takes calls.
void Announce(DesktopCalls& calls)
{
    calls.Listen();
    RequestName(oneclock::AnyClock());
}

// An alarm that rings is answered first.
void WhenAnswered(QObject* context, const std::function<void()>& act)
{
    auto* const ringing = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!ringing) return act();
    ringing->activateWindow();
    QObject::connect(
        ringing, &QDialog::finished, context, [=] { WhenAnswered(context, act); }, Qt::QueuedConnection);
}

// The run of one clock, until something else is to follow it.
class ClockRun : public QObject
{
public:
    explicit ClockRun(const HandOver& start) : m_start(start), m_clock(start.planner, start.minute)
    {
        qApp->installEventFilter(this);
        const auto show = [this](const QStringList& wanted) { WhenAnswered(this, [=, this] { Show(wanted); }); };
        connect(&m_clock, &TrayClock::Wanted, this,
                [show](const QString& day) { show(day.isEmpty() ? QStringList() : QStringList(day)); });
        connect(&m_calls, &DesktopCalls::Called, this, show);
        connect(&m_clock, &TrayClock::TrayAppeared, this,
                [this] { WhenAnswered(this, [this] { EndFor(Present({}).ToClock()); }); });
        connect(&m_clock, &TrayClock::Ended, this, [] { QCoreApplication::exit(); });
        Announce(m_calls);
    }

    QStringList Next() const { return m_next; }

    // At the end of the session the toolkit would close the window of an alarm, which would count as an answer.
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched != qApp || event->type() != QEvent::Quit) return false;
        QCoreApplication::exit();
        return true;
    }

private:
    HandOver Present(const QStringList& wanted) const
    {
        return {m_clock.LastMinute(), m_start.planner, m_start.isShared, wanted};
    }
    void Show(const QStringList& wanted) { EndFor(Present(wanted).ToCalendar()); }
    void EndFor(const QStringList& words)
    {
        m_next = words;
        QCoreApplication::exit();
    }

    const HandOver m_start;
    TrayClock m_clock;
    DesktopCalls m_calls;
    QStringList m_next;
};
} // namespace

QStringList trayrun::RunClock(QApplication& application, const HandOver& start)
{
    const auto end = [&application] { WhenAnswered(&application, [] { QCoreApplication::exit(); }); };
    if (!oneclock::Claim(start.planner, &application, end)) return {};
    g_bErrorTrap = true;
    // Not the calendar's: another copy may be writing that.
    ErrorTail{RunLiteral}([] { OpenErrorLog(folders::ApplicationDirectory() + u"/clock.err"_s); });
    InitResources();
    QApplication::setQuitOnLastWindowClosed(false);
    QGuiApplication::setWindowIcon(QIcon(u":/icons/orrelin.svg"_s));
    const ClockRun run(start);
    const TerminationSignals ended(&application, [] { QCoreApplication::exit(); });
    // The entry for the start with the session starts it, not the desktop's memory of this one.
    QObject::connect(&application, &QGuiApplication::saveStateRequest, &application,
                     [](QSessionManager& session) { session.setRestartHint(QSessionManager::RestartNever); });
    application.exec();
    return run.Next();
}

bool trayrun::AskClockForCalendar()
{
    if (Read(settings::RingInTray) == 0 || !HasSessionBus()) return false;
    QDBusConnection bus = QDBusConnection::sessionBus();
    const QString asking = oneclock::AnyClock() + u".Asked"_s;
    if (!bus.registerService(asking)) return true; // another start has just asked
    const bool isThere = DesktopCalls::ActivateAt(oneclock::AnyClock(), Patience);
    if (isThere) QThread::msleep(TimeToComeBack);
    bus.unregisterService(asking);
    return isThere;
}
