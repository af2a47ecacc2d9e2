// What other sessions tell of their commits, from the server to the planner's listener. They are taken in whenever the
// library has read them, and handed on from the event loop alone. Who waits for them without doing anything is
// connected again when a server that went away is back.
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
    void Stop();                        // at its end

    void Take(const QString& message); // what another session has said
    // What a session says of a record that it has changed.
    static QString Message(const TableDef& table, const std::vector<QVariant>& values);

private:
    void Deliver();
    void Read();
    void ConnectAgain();

    PostgresConnection& m_connection;
    ChangeListener m_listener;
    QSocketNotifier* m_notifier = nullptr;
    QStringList m_messages; // taken in and not yet handed on; an empty one is "anything"
    QObject m_context;
    QTimer m_nextAttempt;
    bool m_wasConnected = false;
};
