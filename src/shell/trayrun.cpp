#include "shell/trayrun.h"

#include "alarms/trayclock.h"
#include "platform/controls/resources.h"
#include "platform/desktop/desktopcalls.h"
#include "platform/desktop/folders.h"
#include "platform/desktop/terminationsignals.h"
#include "platform/runtime/errortail.h"
#include "settings/settings.h"

#include <QApplication>
#include <QCryptographicHash>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDialog>
#include <QFile>
#include <QIcon>
#include <QSessionManager>

#include <unistd.h>
#include <vector>

namespace {
constexpr QLatin1StringView RunLiteral(" in TrayClock, RunClock");
constexpr int Patience = 5000; // milliseconds

QString ClockName()
{
    return DesktopCalls::Name() + u".Clock"_s;
}

// One clock for each planner: a shared one may have been open in two windows.
bool Claim(const QString& planner)
{
    if (!HasSessionBus()) return true;
    const QByteArray hash = QCryptographicHash::hash(planner.toUtf8(), QCryptographicHash::Sha1).toHex();
    return QDBusConnection::sessionBus().registerService(ClockName() + u".P"_s + QString::fromLatin1(hash));
}

// Once its name is there, it takes calls.
void Announce(DesktopCalls& calls)
{
    calls.Listen();
    if (HasSessionBus())
        QDBusConnection::sessionBus().interface()->registerService(ClockName(), QDBusConnectionInterface::QueueService);
}

std::optional<trayrun::HandOver> Behind(const QString& word)
{
    const QStringList words = QCoreApplication::arguments();
    const qsizetype at = words.indexOf(word) + 1;
    if (at == 0) return {};
    return trayrun::HandOver{words.value(at), words.value(at + 1), words.value(at + 2) == u'1', words.mid(at + 3)};
}

// At the start of a session nobody hands anything over.
trayrun::HandOver FromCalendar()
{
    const auto given = Behind(trayrun::ClockWord).value_or(trayrun::HandOver{});
    if (!given.planner.isEmpty() || !given.minute.isEmpty()) return given;
    return {{}, Read(settings::FollowedPlanner), Read(settings::FollowedShared) != 0, {}};
}

// The run of one clock, until something else is to follow it.
class ClockRun : public QObject
{
public:
    explicit ClockRun(const trayrun::HandOver& start) : m_start(start), m_clock(start.planner, start.minute)
    {
        qApp->installEventFilter(this);
        using trayrun::ClockWord, trayrun::ShowWord;
        const auto show = [this](const QStringList& words) { End(ShowWord, words); };
        connect(&m_clock, &TrayClock::Wanted, this,
                [show](const QString& day) { show(day.isEmpty() ? QStringList() : QStringList(day)); });
        connect(&m_calls, &DesktopCalls::Called, this, show);
        connect(&m_clock, &TrayClock::TrayAppeared, this, [this] { End(ClockWord, {}); });
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
    // An alarm is answered first.
    void End(const QString& word, const QStringList& words)
    {
        if (auto* const ringing = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            ringing->activateWindow();
            connect(
                ringing, &QDialog::finished, this, [=, this] { End(word, words); }, Qt::QueuedConnection);
            return;
        }
        m_next = trayrun::HandOver{m_clock.LastMinute(), m_start.planner, m_start.isShared, words}.Words(word);
        QCoreApplication::exit();
    }

    const trayrun::HandOver m_start;
    TrayClock m_clock;
    DesktopCalls m_calls;
    QStringList m_next;
};
} // namespace

QStringList trayrun::HandOver::Words(const QString& word) const
{
    return QStringList({word, minute, planner, isShared ? u"1"_s : u"0"_s}) + wanted;
}

QStringList trayrun::RunClock(QApplication& application)
{
    const HandOver start = FromCalendar();
    if (!Claim(start.planner)) return {};
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

std::optional<trayrun::HandOver> trayrun::FromClock()
{
    return Behind(ShowWord);
}

bool trayrun::HandedToClock()
{
    if (Read(settings::RingInTray) == 0 || !HasSessionBus()) return false;
    QDBusMessage call = QDBusMessage::createMethodCall(ClockName(), DesktopCalls::Path(),
                                                       u"org.freedesktop.Application"_s, u"Activate"_s);
    call.setArguments({DesktopCalls::OwnToken()});
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
    // By its name, which process lists show. A program that was replaced by an update has only the other one.
    const QByteArray self = "/proc/self/exe";
    ::execv(QFile::encodeName(QFile::symLinkTarget(QFile::decodeName(self))).constData(), arguments.data());
    ::execv(self.constData(), arguments.data());
}
