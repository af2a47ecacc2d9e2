// Tells the program's name and version.
#pragma once

#include <QDialog>

class AboutForm : public QDialog
{
    Q_OBJECT

public:
    explicit AboutForm(QWidget* owner = nullptr);
};
