#include "shell/redokey.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTextEdit>

RedoKey::RedoKey()
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool RedoKey::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress) return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->keyCombination() != QKeyCombination(Qt::CTRL, Qt::Key_Y)) return false;
    if (!qobject_cast<QTextEdit*>(watched) && !qobject_cast<QLineEdit*>(watched)) return false;
    // With the text that the key itself would have, since texts check typed keys by it.
    QKeyEvent redo(QEvent::KeyPress, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, u"\x1a"_s);
    QCoreApplication::sendEvent(watched, &redo);
    return true;
}
