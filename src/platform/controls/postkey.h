// A keystroke that a command makes in a person's stead.
#pragma once

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

// Press and release, to the control itself and not to its window, where a shortcut could catch them.
inline void PostKey(QWidget& control, int key, Qt::KeyboardModifiers modifiers)
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
        QCoreApplication::postEvent(&control, new QKeyEvent(type, key, modifiers));
}
