// The notice that a page is on its way to the printer. In front of every window, and never asked anything.
#pragma once

#include <QWidget>

class SpoolForm : public QWidget
{
    Q_OBJECT

public:
    explicit SpoolForm(QWidget* owner);
};
