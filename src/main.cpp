#include "platform/desktop/desktopcalls.h"
#include "shell/startup.h"

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"orrelin"_s);
    QApplication::setApplicationVersion(QStringLiteral(ORRELIN_VERSION));
    QGuiApplication::setDesktopFileName(DesktopCalls::Name());
    return RunOrrelin(application);
}
