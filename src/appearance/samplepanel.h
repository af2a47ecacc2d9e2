// A panel that looks like the cell or heading it stands for and is pressed, by mouse or key, to change its look.
#pragma once

#include "platform/controls/sspanel.h"

class SamplePanel : public SSPanel
{
    Q_OBJECT

public:
    explicit SamplePanel(QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};
