// The connection to a server. It is never renewed in silence: a break ends every lock and every transaction, raises
// BrokenConnection where it is found, and the next call connects anew as another session.
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
    static void SetPatienceForTests(std::chrono::milliseconds both); // none: the usual ones

    // What becomes of a session. Begun may ask; what it raises ends the session again. Over must neither raise nor ask.
    // Told hands on what another session says on a channel that this one listens to.
    struct Events
    {
        std::function<void()> begun;
        std::function<void()> over;
        std::function<void(const QString& message)> told;
    };

    // Nothing is connected yet. Name is the planner's, as messages show it.
    PostgresConnection(const PlannerAddress& address, const QString& name, Events events);

    // BrokenConnection. After an attempt that took long, those that follow soon are refused without another one, or a
    // window would stand still once for every note.
    void Connect();
    bool IsConnected() const { return m_session != nullptr; }
    int Process() const { return m_session ? m_session->Process() : 0; } // the server's process that serves it
    int Socket() const { return m_session->Socket(); }                   // of the present session
    void Break();

    // What is asked in a write must tell its transaction's number, so that it can be asked for if the connection breaks
    // while it is committed.
    void NoteTransaction(const QString& number) { m_transaction = number; }
    void Listen(); // takes in what others have said, and finds a break

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
    struct Backend // the server's process; a later one can have its number but not its start
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
    bool m_hasStep = false; // of the group of writes, so that a failing one can be undone alone
    QString m_transaction;  // of the writes
    QElapsedTimer m_sinceAttempt;
    qint64 m_attemptTook = 0; // milliseconds, of the last one if it failed
};
