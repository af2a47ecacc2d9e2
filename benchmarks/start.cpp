// One measured start of the program.
#include "shell/startup.h"
#include "startend.h"

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"orrelin"_s);
    QApplication::setApplicationVersion(QStringLiteral(ORRELIN_VERSION));
    // Ends when the last box shows its note.
    const EndAfterPainting end(
        [](const QTextEdit& box) { return box.objectName() == u"tbDay(35)" && !box.document()->isEmpty(); });
    RunOrrelin(application);
    return 0;
}
