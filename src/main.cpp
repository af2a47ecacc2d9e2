#include "shell/startup.h"

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("orrelin"));
    QApplication::setApplicationVersion(QStringLiteral(ORRELIN_VERSION));
    return RunOrrelin(application);
}
