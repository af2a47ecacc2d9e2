// How the two timers of a workgroup's planner behave.
#pragma once

#include <QDialog>

class QCheckBox;
class QLineEdit;
struct NetworkControls;

class NetworkOptionForm : public QDialog
{
    Q_OBJECT

public:
    NetworkOptionForm(QWidget* owner, const NetworkControls& network); // shows the settings
    void accept() override;                                            // writes them; the running planner follows

private:
    QWidget* MakeFrame();
    void ShowSettings();
    void TakeSwitches();
    void TakeDelays();

    const NetworkControls& m_network;
    QCheckBox* m_chkAutoUnlock = nullptr;
    QLineEdit* m_txtUnlockDelay = nullptr;
    QCheckBox* m_chkAutoRefresh = nullptr;
    QLineEdit* m_txtAutoRefreshDelay = nullptr;
};
