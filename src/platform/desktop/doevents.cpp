#include "platform/desktop/doevents.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QScopedValueRollback>
#include <QThread>
#include <QWindow>

namespace {
bool g_runs = false;

// A timer that rings again does so later.
class NoTimers : public QObject
{
public:
    NoTimers() { qApp->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override { return event->type() == QEvent::Timer; }
};
} // namespace

void DoEvents()
{
    const QScopedValueRollback<bool> running(g_runs, true);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    // Waiting events would stay until the next event comes.
    if (auto* const dispatcher = QAbstractEventDispatcher::instance()) dispatcher->wakeUp();
}

void DoWindowEvents()
{
    const QScopedValueRollback<bool> running(g_runs, true);
    const NoTimers noTimers;
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
}

bool DoEventsRuns()
{
    return g_runs;
}

void ShowAndPaint(QWidget& window)
{
    constexpr int LongestWait = 100; // milliseconds
    window.show();
    window.raise();
    const QDeadlineTimer limit(LongestWait);
    for (DoEvents(); !window.windowHandle()->isExposed() && !limit.hasExpired(); DoEvents())
        QThread::msleep(1);
    window.repaint();
}
