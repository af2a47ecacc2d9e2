#include "shell/startup.h"

#include "calendar/calendarstate.h"
#include "platform/controls/resources.h"
#include "platform/desktop/desktopcalls.h"
#include "platform/desktop/doevents.h"
#include "platform/desktop/folders.h"
#include "platform/desktop/mousepointer.h"
#include "platform/runtime/errortail.h"
#include "shell/mainform.h"
#include "shell/startupform.h"
#include "shell/terminationsignals.h"

#include <QApplication>
#include <QIcon>
#include <QTimer>

namespace {
constexpr QLatin1StringView StartTail(" in StartupForm, Form Load event");
constexpr QLatin1StringView ExitLiteral(" in MainForm, subExitProgram");

void WatchForTheEnd(QApplication& application, Mainform& form)
{
    // The session may take the process away as soon as this returns.
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &form,
                     Guarded(ExitLiteral, [&form] { form.subExitProgram(Mainform::SessionEnds); }),
                     Qt::DirectConnection);
    auto* watched = new TerminationSignals(&form);
    QObject::connect(watched, &TerminationSignals::Received, &form,
                     Guarded(ExitLiteral, [&form] { form.subExitProgram(Mainform::ProcessIsEnded); }));
}
} // namespace

int RunOrrelin(QApplication& application)
{
    InitResources();
    application.setQuitOnLastWindowClosed(false);
    auto splash = std::make_unique<StartUpForm>();
    splash->SetPanel3D1(u"Version "_s + QStringLiteral(ORRELIN_VERSION));
    splash->show();
    DoEvents();
    g_bErrorTrap = true;
    g_iLanguage = 0;
    // Without a log the program can still be used.
    ErrorTail{StartTail}([] { OpenErrorLog(folders::ApplicationDirectory() + u"/planner.err"_s); });
    SetMousePointer(mousepointer::Hourglass);
    Mainform form;
    // Not quit(): that asks the windows first, and one that must be answered refuses.
    QObject::connect(&form, &Mainform::Ended, [] { QCoreApplication::exit(); });
    WatchForTheEnd(application, form);
    DesktopCalls calls;
    QObject::connect(
        &calls, &DesktopCalls::Called, &form,
        Guarded(" in MainForm, AnswerDesktop"_L1, [&form](const QStringList& uris) { form.AnswerDesktop(uris); }));
    const auto windowIsThere = [&] {
        splash->raise();
        // Even where a box of the start waits for its answer: the bus gives up a program that does not listen.
        QTimer::singleShot(0, &calls, &DesktopCalls::Listen);
    };
    ErrorTail{StartTail}([&] { form.Form_Load([&](const QString& what) { splash->SetLabel1(what); }, windowIsThere); });
    splash.reset();
    // Ended while a box of the start was waiting: there is no loop yet that the end could have left.
    if (form.HasEnded()) return 0;
    // After the first paint: nobody waits for it, and reading the picture takes its time.
    QTimer::singleShot(0, &application, [] { QGuiApplication::setWindowIcon(QIcon(u":/icons/orrelin.svg"_s)); });
    SetMousePointer(mousepointer::Default);
    return application.exec();
}
