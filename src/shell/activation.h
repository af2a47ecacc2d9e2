// What the desktop asks of the main window: to come to the front, and to open a planner that was chosen in a file
// manager. A planner waits until whatever is under way has ended: a window that must be answered, a menu, a drag, a
// routine that lets windows paint.
#pragma once

#include <QStringList>
#include <QTimer>

class Opening;

class Activation
{
public:
    Activation(QWidget& client, Opening& opening);

    // Of planners that wait only those of the last call are opened.
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
