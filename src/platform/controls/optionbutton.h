// An arrow key chooses the option that it reaches. The toolkit would only move the focus while no option of the group
// is chosen.
#pragma once

#include <QApplication>
#include <QButtonGroup>
#include <QRadioButton>

class OptionButton : public QRadioButton
{
public:
    using QRadioButton::QRadioButton;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        QRadioButton::keyPressEvent(event);
        auto* reached = qobject_cast<QAbstractButton*>(QApplication::focusWidget());
        if (reached && reached != this && reached->group() == group() && !reached->isChecked()) reached->click();
    }
};
