// The connection to a server. It is never renewed silently. A break ends every lock and transaction, and raises
// BrokenConnection where it is found. The next call connects as a new session.
#pragma once

#include "platform/engine/postgres/planneraddress.h"
#include "platform/engine/postgres/serverline.h"
#include "platform/engine/sql/sqlconnection.h"

#include <QElapsedTimer>

#include <chrono>
#include <memory>

class PostgresConnection final : public SqlConnection
{
public:
    static void SetPatienceForTests(std::chrono::milliseconds both); // 0 restores the usual ones

    // The events of a session. begun may run statements; if it raises, the session ends. over must neither raise nor
    // run statements. told passes on a message of another session on a channel that this one listens to.
    struct Events
    {
        std::function<void()> begun;
        std::function<void()> over;
        std::function<void(const QString& message)> told;
    };

    // Does not connect yet. The name is the planner's, for messages.
    PostgresConnection(const PlannerAddress& address, const QString& name, Events events);

    // BrokenConnection. After a slow failed attempt, calls soon after it fail without another attempt, so that the
    // window does not block once for every note.
    void Connect();
    bool IsConnected() const { return m_session != nullptr; }
    int Process() const { return m_session ? m_session->Process() : 0; } // the process id of its server process
    int Socket() const { return m_session->Socket(); }                   // of the current session
    void Break();

    // A statement of a write must return its transaction's number. If the connection breaks during the commit, the
    // server is asked for the result by that number.
    void NoteTransaction(const QString& number) { m_transaction = number; }
    void Listen(); // reads messages of others and detects a break

protected:
    void Prepare() override { Connect(); }
    void PrepareWrite() override;
    SqlRows Run(const QString& statement, const SqlValues& values, Patience patience) override;
    bool HasTransaction() const override { return IsConnected(); }
    void BeginStep() override;
    void UndoStep() override;
    void Abandon() override { Break(); }
    void ClearDoubt(const RunTimeError& failure) override;

private:
    struct Backend // a server process; a later one can have its number but not its start
    {
        qint64 process = 0;
        QString start;
    };

    Backend Open();
    void End(const Backend& former);
    RunTimeError Lost(const QString& detail = {});
    QString StateOf(const QString& transaction);

    const PlannerAddress m_address;
    Events m_events;
    std::unique_ptr<ServerLine> m_session;
    Backend m_backend;
    bool m_hasStep = false; // within a group of writes, so that a failed statement can be undone alone
    QString m_transaction;  // of the current write
    QElapsedTimer m_sinceAttempt;
    qint64 m_attemptTook = 0; // milliseconds of the last attempt, if it failed
};
