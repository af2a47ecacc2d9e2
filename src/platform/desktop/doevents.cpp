#include "platform/desktop/doevents.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDeadlineTimer>
#include <QScopedValueRollback>
#include <QThread>
#include <QWindow>

namespace {
bool g_runs = false;

// A timer that rings again does so later. Those of the modal window's controls ring: a key presses a button by one.
class NoTimers : public QObject
{
public:
    NoTimers() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() != QEvent::Timer) return false;
        const auto* control = qobject_cast<QWidget*>(object);
        return !control || control->window() != QApplication::activeModalWidget();
    }
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
