// The notices that stand on the screen while the program starts and ends.
#pragma once

#include <QWidget>

// Program, version and what is being done.
class StartUpForm : public QWidget
{
    Q_OBJECT

public:
    StartUpForm();

    void SetPanel3D1(const QString& line); // name and version
    void SetLabel1(const QString& progress);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_panel3D1;
    QString m_label1;
};

// Shown while the program saves and ends.
class ExitForm : public QWidget
{
    Q_OBJECT

public:
    ExitForm();
};
