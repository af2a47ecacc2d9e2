#include "printing/onelinebox.h"

#include <QKeyEvent>

OneLineBox::OneLineBox(const QString& name, OnEntering onEntering) : m_onEntering(onEntering)
{
    setObjectName(name);
}

void OneLineBox::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    if (m_onEntering == OnEntering::SelectAll) selectAll();
    m_enteredByMouse = event->reason() == Qt::MouseFocusReason;
}

void OneLineBox::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return event->accept();
    QLineEdit::keyPressEvent(event);
}

// The press that brings the focus would replace the selection by a caret.
void OneLineBox::mousePressEvent(QMouseEvent* event)
{
    QLineEdit::mousePressEvent(event);
    if (std::exchange(m_enteredByMouse, false) && m_onEntering == OnEntering::SelectAll) selectAll();
}
