#include "platform/desktop/doevents.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QScopedValueRollback>

namespace {
bool g_runs = false;
} // namespace

void DoEvents()
{
    const QScopedValueRollback<bool> running(g_runs, true);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    // What waits would otherwise go on waiting until the next event comes in.
    if (auto* const dispatcher = QAbstractEventDispatcher::instance()) dispatcher->wakeUp();
}

bool DoEventsRuns()
{
    return g_runs;
}
