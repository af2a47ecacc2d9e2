// A button that Return presses when focused, like Space, though it is never the default button.
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
