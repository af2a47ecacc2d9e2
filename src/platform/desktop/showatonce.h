// A notice that must be on the screen before the work that it tells of begins.
#pragma once

#include "platform/desktop/doevents.h"

#include <QDeadlineTimer>
#include <QThread>
#include <QWidget>
#include <QWindow>

// Shows and paints the window, and waits a moment for the screen if that is slow. Takes in no clicks and keys.
inline void ShowAndPaint(QWidget& window)
{
    constexpr int LongestWait = 100; // milliseconds
    window.show();
    window.raise();
    const QDeadlineTimer limit(LongestWait);
    for (DoEvents(); !window.windowHandle()->isExposed() && !limit.hasExpired(); DoEvents())
        QThread::msleep(1);
    window.repaint();
}
