// The windows shown while the program starts and ends.
#pragma once

#include <QWidget>

// Shows the program, its version and the current step.
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

class ExitForm : public QWidget
{
    Q_OBJECT

public:
    ExitForm();
};
