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
    if (QCoreApplication::arguments().contains(trayrun::ClockWord)) return trayrun::RunClock(application);
    if (!trayrun::FromClock() && trayrun::HandedToClock()) return {};
    return RunOrrelin(application);
}
} // namespace

int main(int argc, char** argv)
{
    const QStringList next = Run(argc, argv);
    if (!next.isEmpty()) trayrun::Replace(next);
    return 0;
}
