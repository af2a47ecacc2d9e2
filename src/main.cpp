#include "platform/desktop/desktopcalls.h"
#include "shell/startup.h"
#include "shell/trayrun.h"

#include <QApplication>

namespace {
// Returns the words with which the program is to be replaced, if it is.
QStringList Run(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"orrelin"_s);
    QApplication::setApplicationVersion(QStringLiteral(ORRELIN_VERSION));
    QGuiApplication::setDesktopFileName(DesktopCalls::Name());
    if (const auto start = HandedToClock()) return trayrun::RunClock(application, *start);
    const auto back = HandedToCalendar();
    if (!back && trayrun::AskClockForCalendar()) return {};
    return RunOrrelin(application, back);
}
} // namespace

int main(int argc, char** argv)
{
    const QStringList next = Run(argc, argv);
    if (!next.isEmpty()) Replace(next);
    return 0;
}
