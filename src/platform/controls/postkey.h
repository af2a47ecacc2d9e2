// A keystroke that a command posts.
#pragma once

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

// Posts press and release to the control itself, so that no shortcut of the window catches them.
inline void PostKey(QWidget& control, int key, Qt::KeyboardModifiers modifiers)
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
        QCoreApplication::postEvent(&control, new QKeyEvent(type, key, modifiers));
}
