#include "platform/desktop/mousepointer.h"

#include <QDialog>
#include <QGuiApplication>

namespace {
int g_pointer = mousepointer::Default;
}

void SetMousePointer(int pointer)
{
    // The toolkit stacks cursors. We use one level, so one Default ends any number of Hourglass calls.
    const bool wasWaiting = g_pointer == mousepointer::Hourglass;
    const bool waits = pointer == mousepointer::Hourglass;
    g_pointer = pointer;
    if (waits && !wasWaiting) QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    if (!waits && wasWaiting) QGuiApplication::restoreOverrideCursor();
}

int ExecModal(QDialog& dialog)
{
    const int pointer = g_pointer;
    SetMousePointer(mousepointer::Default);
    const int answer = dialog.exec();
    SetMousePointer(pointer);
    return answer;
}
