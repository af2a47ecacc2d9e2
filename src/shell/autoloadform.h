// Start-up options: whether, how and in which view the open planner is opened at every start.
#pragma once

#include <QDialog>

#include <array>

class QCheckBox;
class QRadioButton;

class AutoloadForm : public QDialog
{
    Q_OBJECT

public:
    explicit AutoloadForm(QWidget* owner = nullptr); // shows the settings
    void accept() override;                          // writes them

private:
    void FillFileFrame(QLayout& column);
    void ShowSettings();

    QCheckBox* m_chkAutoload;
    std::array<QRadioButton*, 2> m_opShared;
    std::array<QRadioButton*, 2> m_opStartupView;
    QCheckBox* m_chkMinimized;
};
