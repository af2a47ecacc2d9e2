#include "shell/startup.h"

#include "calendar/calendarstate.h"
#include "platform/controls/resources.h"
#include "platform/desktop/doevents.h"
#include "platform/desktop/folders.h"
#include "platform/desktop/mousepointer.h"
#include "platform/runtime/errortail.h"
#include "shell/mainform.h"
#include "shell/startupform.h"
#include "shell/terminationsignals.h"

#include <QApplication>
#include <QIcon>

namespace {
constexpr QLatin1StringView StartTail(" in StartupForm, Form Load event");

void WatchForTheEnd(QApplication& application, Mainform& form)
{
    constexpr int SessionEnds = 2;
    constexpr int ProcessIsEnded = 3;
    // The session may take the process away as soon as this returns.
    QObject::connect(
        &application, &QGuiApplication::commitDataRequest, &form, [&form] { form.subExitProgram(SessionEnds); },
        Qt::DirectConnection);
    auto* watched = new TerminationSignals(&form);
    QObject::connect(watched, &TerminationSignals::Received, &form, [&form] { form.subExitProgram(ProcessIsEnded); });
}
} // namespace

int RunOrrelin(QApplication& application)
{
    InitResources();
    application.setQuitOnLastWindowClosed(false);
    auto splash = std::make_unique<StartUpForm>();
    splash->SetPanel3D1(QStringLiteral("Version ") + QStringLiteral(ORRELIN_VERSION));
    splash->show();
    DoEvents();
    g_bErrorTrap = true;
    g_iLanguage = 0;
    // Without a log the program can still be used.
    ErrorTail{StartTail}([] { OpenErrorLog(folders::ApplicationDirectory() + QStringLiteral("/planner.err")); });
    SetMousePointer(mousepointer::Hourglass);
    Mainform form;
    WatchForTheEnd(application, form);
    ErrorTail{StartTail}(
        [&] { form.Form_Load([&](const QString& what) { splash->SetLabel1(what); }, [&] { splash->raise(); }); });
    splash.reset();
    SetMousePointer(mousepointer::Default);
    return application.exec();
}
