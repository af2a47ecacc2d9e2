#include "shell/startup.h"

#include "platform/controls/resources.h"
#include "platform/desktop/desktopcalls.h"
#include "platform/desktop/doevents.h"
#include "platform/desktop/folders.h"
#include "platform/desktop/mousepointer.h"
#include "platform/desktop/terminationsignals.h"
#include "platform/runtime/errortail.h"
#include "shell/mainform.h"
#include "shell/splash.h"
#include "state/calendarstate.h"

#include <QApplication>
#include <QIcon>
#include <QTimer>

namespace {
constexpr QLatin1StringView StartTail(" in StartupForm, Form Load event");
constexpr QLatin1StringView ExitLiteral(" in MainForm, subExitProgram");

void WatchForTheEnd(QApplication& application, Mainform& form)
{
    // The session may end the process as soon as this returns.
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &form,
                     Guarded(ExitLiteral, [&form] { form.subExitProgram(Mainform::SessionEnds); }),
                     Qt::DirectConnection);
    new TerminationSignals(&form, Guarded(ExitLiteral, [&form] { form.subExitProgram(Mainform::ProcessIsEnded); }));
}
} // namespace

QStringList RunOrrelin(QApplication& application, const std::optional<HandOver>& back)
{
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
    ErrorTail{StartTail}(
        [&] { form.Form_Load([&](const QString& what) { splash->SetLabel1(what); }, windowIsThere, back); });
    splash.reset();
    // A signal ended the program behind a message box of the start, when exec() was not running yet.
    if (form.HasEnded()) return form.WhatFollows();
    if (back) form.ComeBack(back->wanted);
    // After the first paint, since loading the icon takes time.
    QTimer::singleShot(0, &application, [] { QGuiApplication::setWindowIcon(QIcon(u":/icons/orrelin.svg"_s)); });
    SetMousePointer(mousepointer::Default);
    application.exec();
    return form.WhatFollows();
}
