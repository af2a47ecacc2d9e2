#include "platform/controls/timer.h"

#include <QCoreApplication>

Timer::Timer(int interval, QObject* parent) : QObject(parent)
{
    m_timer.setInterval(interval);
    // A QTimer whose slot has not returned does not fire again; behind a queue its slot returns at once.
    connect(&m_timer, &QTimer::timeout, this, &Timer::Tick, Qt::QueuedConnection);
}

void Timer::SetEnabled(bool enabled)
{
    if (enabled == Enabled()) return;
    if (enabled) {
        m_timer.start();
    } else {
        m_timer.stop();
        QCoreApplication::removePostedEvents(this, QEvent::MetaCall); // a tick that waits in the queue is off too
    }
}
