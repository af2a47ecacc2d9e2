// Delivers the commits of other sessions from the server to the planner's listener. Messages are collected whenever the
// library has read them, and delivered from the event loop only. After a server has come back, an idle program connects
// again.
#pragma once

#include "platform/engine/postgres/postgresconnection.h"
#include "platform/engine/store.h"

#include <QObject>
#include <QTimer>

class QSocketNotifier;

class PostgresChanges
{
public:
    explicit PostgresChanges(PostgresConnection& connection);
    ~PostgresChanges();

    void SetListener(ChangeListener listener) { m_listener = std::move(listener); }
    void Start(const QString& channel); // in each new session
    void Lose();                        // after its unexpected end: a new session is tried a moment later
    void Stop();                        // when the planner is closed

    void Take(const QString& message); // a message of another session
    // The message to other sessions about a changed record.
    static QString Message(const TableDef& table, const std::vector<QVariant>& values);

private:
    void Deliver();
    void Read();
    void ConnectAgain();

    PostgresConnection& m_connection;
    ChangeListener m_listener;
    QSocketNotifier* m_notifier = nullptr;
    QStringList m_messages; // collected and not yet delivered; an empty one is "anything"
    QObject m_context;
    QTimer m_nextAttempt;
    bool m_wasConnected = false;
};
