// Shown while the program saves and ends.
#pragma once

#include <QWidget>

class ExitForm : public QWidget
{
    Q_OBJECT

public:
    ExitForm();

    // On the screen before the save begins; where the desktop lets it wait, the save does not.
    void ShowAtOnce();
};
