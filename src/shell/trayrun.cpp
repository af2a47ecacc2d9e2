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

QStringList WordsBehind(const QString& word)
{
    const QStringList words = QCoreApplication::arguments();
    return words.sliced(words.indexOf(word) + 1);
}

// The run of one clock, until something else is to follow it.
class ClockRun : public QObject
{
public:
    explicit ClockRun(const QString& planner) : m_clock(planner, WordsBehind(trayrun::ClockWord).value(0))
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
        m_next = QStringList({word, m_clock.LastMinute()}) + words;
        QCoreApplication::exit();
    }

    TrayClock m_clock;
    DesktopCalls m_calls;
    QStringList m_next;
};
} // namespace

QStringList trayrun::RunClock(QApplication& application)
{
    const QString planner = Read(settings::FollowedPlanner);
    if (!Claim(planner)) return {};
    g_bErrorTrap = true;
    ErrorTail{RunLiteral}([] { OpenErrorLog(folders::ApplicationDirectory() + u"/planner.err"_s); });
    InitResources();
    QApplication::setQuitOnLastWindowClosed(false);
    QGuiApplication::setWindowIcon(QIcon(u":/icons/orrelin.svg"_s));
    const ClockRun run(planner);
    const TerminationSignals ended(&application, [] { QCoreApplication::exit(); });
    application.exec();
    return run.Next();
}

std::optional<trayrun::Return> trayrun::ReturnFromClock()
{
    if (!QCoreApplication::arguments().contains(ShowWord)) return {};
    const QStringList words = WordsBehind(ShowWord);
    return Return{words.value(0), words.mid(1)};
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
    ::execv("/proc/self/exe", arguments.data());
}
