#include "shell/startup.h"

#include "platform/controls/resources.h"
#include "platform/desktop/desktopcalls.h"
#include "platform/desktop/doevents.h"
#include "platform/desktop/folders.h"
#include "platform/desktop/mousepointer.h"
#include "platform/runtime/errortail.h"
#include "shell/mainform.h"
#include "shell/splash.h"
#include "shell/trayrun.h"
#include "state/calendarstate.h"
#include "state/moddate.h"

#include <QApplication>
#include <QIcon>
#include <QSocketNotifier>
#include <QTimer>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {
constexpr QLatin1StringView StartTail(" in StartupForm, Form Load event");
constexpr QLatin1StringView ExitLiteral(" in MainForm, subExitProgram");

constexpr std::array<int, 3> Watched = {SIGTERM, SIGINT, SIGHUP};
std::array<int, 2> g_pipe = {-1, -1};

void OnSignal(int)
{
    const char byte = 1;
    [[maybe_unused]] const auto written = ::write(g_pipe[1], &byte, 1);
}

void SetHandlers(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int number : Watched)
        sigaction(number, &action, nullptr);
}
// Turns SIGTERM, SIGINT and SIGHUP into an event, since a signal handler may only write to a pipe. One instance at a
// time.
class TerminationSignals : public QObject
{
public:
    TerminationSignals(QObject* parent, const std::function<void()>& received) : QObject(parent)
    {
        if (::pipe2(g_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
        auto* notifier = new QSocketNotifier(g_pipe[0], QSocketNotifier::Read, this);
        connect(notifier, &QSocketNotifier::activated, this, [received] {
            char byte = 0;
            if (::read(g_pipe[0], &byte, 1) == 1) received();
        });
        SetHandlers(OnSignal);
    }

    ~TerminationSignals() override
    {
        if (g_pipe[0] < 0) return;
        SetHandlers(SIG_DFL);
        for (int& end : g_pipe)
            ::close(std::exchange(end, -1));
    }
};

void WatchForTheEnd(QApplication& application, Mainform& form)
{
    // The session may end the process as soon as this returns.
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &form,
                     Guarded(ExitLiteral, [&form] { form.subExitProgram(Mainform::SessionEnds); }),
                     Qt::DirectConnection);
    new TerminationSignals(&form, Guarded(ExitLiteral, [&form] { form.subExitProgram(Mainform::ProcessIsEnded); }));
}
// With a day of the list of missed alarms, or files of a call.
void Return(Mainform& form, const QStringList& words)
{
    if (words.size() == 1 && DayOfKey(words.front()))
        form.GoTo(words.front());
    else
        form.AnswerDesktop(words);
}
} // namespace

bool RunOrrelin(QApplication& application)
{
    const auto back = trayrun::WordsOfReturn();
    InitResources();
    application.setQuitOnLastWindowClosed(false);
    auto splash = std::make_unique<StartUpForm>();
    splash->SetPanel3D1(u"Version "_s + QStringLiteral(ORRELIN_VERSION));
    splash->show();
    DoEvents();
    g_bErrorTrap = true;
    g_iLanguage = 0;
    // The program also works without a log.
    ErrorTail{StartTail}([] { OpenErrorLog(folders::ApplicationDirectory() + u"/planner.err"_s); });
    SetMousePointer(mousepointer::Hourglass);
    Mainform form;
    // Not quit(), which asks the windows: an open modal one refuses.
    QObject::connect(&form, &Mainform::Ended, [] { QCoreApplication::exit(); });
    WatchForTheEnd(application, form);
    DesktopCalls calls;
    QObject::connect(
        &calls, &DesktopCalls::Called, &form,
        Guarded(" in MainForm, AnswerDesktop"_L1, [&form](const QStringList& uris) { form.AnswerDesktop(uris); }));
    const auto windowIsThere = [&] {
        splash->raise();
        // Queued, so that it also runs behind a message box of the start: the bus drops a program that does not listen.
        QTimer::singleShot(0, &calls, &DesktopCalls::Listen);
    };
    ErrorTail{StartTail}([&] {
        form.Form_Load([&](const QString& what) { splash->SetLabel1(what); }, windowIsThere, back.has_value());
    });
    splash.reset();
    // A signal ended the program behind a message box of the start, when exec() was not running yet.
    if (form.HasEnded()) return false;
    if (back) Return(form, *back);
    // After the first paint, since loading the icon takes time.
    QTimer::singleShot(0, &application, [] { QGuiApplication::setWindowIcon(QIcon(u":/icons/orrelin.svg"_s)); });
    SetMousePointer(mousepointer::Default);
    application.exec();
    return form.GoesToTray();
}
