// Shown while the program saves and ends.
#pragma once

#include <QWidget>

class ExitForm : public QWidget
{
    Q_OBJECT

public:
    ExitForm();
};
