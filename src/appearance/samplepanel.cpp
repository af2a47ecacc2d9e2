#include "appearance/samplepanel.h"

#include "platform/controls/accessrole.h"

#include <QKeyEvent>

SamplePanel::SamplePanel(QWidget* parent) : SSPanel(parent)
{
    SetAccessibleRole(this, QAccessible::Button);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    SetEdges(Qt::TopEdge | Qt::LeftEdge | Qt::RightEdge | Qt::BottomEdge);
}

void SamplePanel::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space) {
        Q_EMIT Click();
    } else {
        SSPanel::keyPressEvent(event);
    }
}

void SamplePanel::focusInEvent(QFocusEvent* event)
{
    SSPanel::focusInEvent(event);
    SetActive(true);
}

void SamplePanel::focusOutEvent(QFocusEvent* event)
{
    SSPanel::focusOutEvent(event);
    SetActive(false);
}
