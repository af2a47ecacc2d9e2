// The notice that a page is being printed. It stays in front of every window and takes no input.
#pragma once

#include <QWidget>

class SpoolForm : public QWidget
{
    Q_OBJECT

public:
    explicit SpoolForm(QWidget* owner);
};
