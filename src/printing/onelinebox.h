// A box of one line that Return does not leave: it is no part of the text, and it confirms nothing.
#pragma once

#include <QLineEdit>

class OneLineBox : public QLineEdit
{
    Q_OBJECT

public:
    enum class OnEntering
    {
        KeepSelection,
        SelectAll
    };

    OneLineBox(const QString& name, OnEntering onEntering);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    const OnEntering m_onEntering;
    bool m_enteredByMouse = false; // by the press that is under way
};
