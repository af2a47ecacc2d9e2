// The options of a workgroup's planner: its two timers and its server.
#pragma once

#include <QDialog>

class QCheckBox;
class QLineEdit;
class QPushButton;
class ServerMove;
struct NetworkControls;

class NetworkOptionForm : public QDialog
{
    Q_OBJECT

public:
    NetworkOptionForm(QWidget* owner, const NetworkControls& network, ServerMove& server); // shows the settings
    void accept() override; // writes them; the running timers follow

private:
    QWidget* MakeFrame();
    QWidget* MakeServerFrame();
    void ShowServer();
    void TakeSettings();

    const NetworkControls& m_network;
    ServerMove& m_server;
    QLineEdit* m_txtServer = nullptr;
    QPushButton* m_btnMove = nullptr;
    QPushButton* m_btnSaveToFile = nullptr;
    QCheckBox* m_chkAutoUnlock = nullptr;
    QLineEdit* m_txtUnlockDelay = nullptr;
    QCheckBox* m_chkAutoRefresh = nullptr;
    QLineEdit* m_txtAutoRefreshDelay = nullptr;
};
