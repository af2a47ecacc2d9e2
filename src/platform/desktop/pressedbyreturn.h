// A button that Return presses while it has the focus, as Space does, though it never is the default one of its window.
#pragma once

#include <QKeyEvent>

template <typename Button>
class PressedByReturn : public Button
{
public:
    using Button::Button;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (!isReturn) return Button::keyPressEvent(event);
        if (!event->isAutoRepeat()) this->click();
    }
};
