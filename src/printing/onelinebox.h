// A one-line box in which Return does nothing: it neither inserts a line nor confirms the dialog.
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
    bool m_enteredByMouse = false; // the current press brought the focus
};
