// Answers the desktop: brings the main window to the front and opens a planner chosen in a file manager. The planner
// waits while a dialog, a menu, a drag or a routine that processes events is active.
#pragma once

#include <QStringList>
#include <QTimer>

class Opening;

class Activation
{
public:
    Activation(QWidget& client, Opening& opening);

    // A new call replaces planners that still wait.
    void Answer(const QStringList& uris);

private:
    void BringToFront() const;
    bool IsFree() const;
    void OpenWaiting();
    void Open(const QString& uri);

    QWidget& m_client;
    Opening& m_opening;
    QStringList m_waiting;
    QTimer m_tmWaiting;
};
