// The connection to a server and its transactions. It is never renewed in silence: a break ends every lock and every
// transaction, raises 3151 where it is found, and the next call connects anew as another session.
#pragma once

#include "platform/engine/postgres/planneraddress.h"
#include "platform/runtime/runtimeerror.h"

#include <QElapsedTimer>

#include <pqxx/connection>
#include <pqxx/result>

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

class PostgresConnection
{
public:
    using Values = std::vector<std::optional<std::string>>;

    // How long the server may be silent, neither giving nor taking a byte, before the session counts as broken.
    enum class Patience
    {
        Usual,
        Long // where it has much to look at or to write before it answers
    };
    static void SetPatienceForTests(std::chrono::milliseconds both); // none: the usual ones

    // Nothing is connected yet. Name is the planner's, as messages show it. Welcome is run in each new session, with
    // Ask; what it raises ends the session again.
    PostgresConnection(const PlannerAddress& address, const QString& name, std::function<void()> welcome);
    ~PostgresConnection();
    PostgresConnection(const PostgresConnection&) = delete;
    PostgresConnection& operator=(const PostgresConnection&) = delete;

    // 3151. After an attempt that took long, those that follow soon are refused without another one, or a window would
    // stand still once for every note.
    void Connect();
    bool IsConnected() const { return m_session != nullptr; }
    int Process() const; // the server's process that serves it
    int Socket() const;  // of the present session

    // One statement, with the values for its $1 and so on; prepared by the library. 3151, 3006 and others as told by
    // the table of postgreserrors.
    pqxx::result Ask(const std::string& statement, const Values& values = {}, Patience patience = Patience::Usual);
    QString AskOne(const std::string& statement, const Values& values = {}); // the first value; 3043 if there is none

    // Anything else that the present session's library does, with the same errors.
    void Do(const std::function<void(pqxx::connection&)>& step);

    // Runs the step in the WriteTransaction, or as one of its own. What the step asks must tell its transaction's
    // number by NoteTransaction, so that it can be asked for if the connection breaks while it is committed.
    void Write(const std::function<void()>& step);
    void NoteTransaction(const std::string& number) { m_transaction = number; }
    bool IsReading() const { return m_reading; }

    // As the Store's calls of these names.
    void BeginRead();
    void EndRead();
    void BeginWrite();
    void Commit();
    void Rollback();
    void StopReading(); // what is read next is the latest state

    // Takes in what others have told. A break is found here too.
    void Listen();
    // Called at each end of a session, to give up what belongs to it. Must not raise, nor ask anything.
    void OnBreak(std::function<void()> step) { m_onBreak = std::move(step); }
    void Break();

private:
    struct Line;
    struct Backend // the server's process, so that it can be told from a later one of the same number
    {
        std::string process;
        std::string start;
    };

    Backend Open();
    void End(const Backend& former);
    RunTimeError Failure(const pqxx::sql_error& error);
    RunTimeError Lost(const char* detail = "");
    RunTimeError Spoiling(const RunTimeError& error);
    template <typename Step>
    auto Translated(Patience patience, Step&& step); // with the library's errors as ours
    template <typename Step>
    pqxx::result Perform(Patience patience, Step&& step);
    void Command(const char* text, Patience patience = Patience::Usual);
    void WriteInGroup(const std::function<void()>& step);
    void UndoStep(const RunTimeError& failure);
    void FindOutWhetherCommitted(const RunTimeError& loss);
    std::string StateOf(const std::string& transaction);

    const PlannerAddress m_address;
    const QString m_name;
    const std::function<void()> m_welcome;
    std::function<void()> m_onBreak;
    std::unique_ptr<Line> m_session;
    Backend m_backend;
    int m_reads = 0;        // nested reads
    bool m_reading = false; // a read transaction is open
    bool m_writing = false;
    bool m_inStep = false;              // a failure is undone by itself
    bool m_hasStep = false;             // of the group of writes, so that a failing one can be undone alone
    std::string m_transaction;          // of the writes
    std::optional<RunTimeError> m_lost; // why the group of writes is lost
    QElapsedTimer m_sinceAttempt;
    qint64 m_attemptTook = 0; // milliseconds, of the last one if it failed
};
