#include "platform/desktop/doevents.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>

void DoEvents()
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    // What waits would otherwise go on waiting until the next event comes in.
    if (auto* const dispatcher = QAbstractEventDispatcher::instance()) dispatcher->wakeUp();
}
