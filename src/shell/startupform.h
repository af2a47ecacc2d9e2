// The splash window: program, version and what is being done.
#pragma once

#include <QWidget>

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
