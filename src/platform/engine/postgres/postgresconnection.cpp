#include "platform/engine/postgres/postgresconnection.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/enginerefusals.h"
#include "platform/engine/postgres/answerwatch.h"
#include "platform/engine/postgres/postgreserrors.h"
#include "platform/engine/postgres/postgresvalues.h"
#include "platform/engine/postgres/sessionname.h"
#include "platform/engine/waiting.h"

#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QThread>

#include <pqxx/errorhandler>
#include <pqxx/nontransaction>
#include <pqxx/prepared_statement>

#include <array>
#include <stdexcept>

namespace {
using namespace engineerrors;

// Nothing may keep the window waiting for ever: not a server that does not answer, not a cable that is pulled, not a
// colleague's lock. Keepalives end a dead session in about half a minute, on both sides; its locks end with it. They
// say nothing of a server that has stopped while its machine goes on: that is the AnswerWatch's.
constexpr const char* Waiting =
    "connect_timeout=5 keepalives=1 keepalives_idle=20 keepalives_interval=5 keepalives_count=3 "
    "tcp_user_timeout=15000 client_encoding=UTF8 ";

// An empty path, so that nothing that others have put into the database stands in for what is meant.
constexpr const char* Settings =
    "SET search_path = ''; SET synchronous_commit = on; SET statement_timeout = '20s'; SET lock_timeout = '1500ms'; "
    "SET idle_session_timeout = 0; SET idle_in_transaction_session_timeout = 0; SET default_transaction_isolation = "
    "'read committed'; SET default_transaction_read_only = off; SET datestyle = 'ISO'; SET bytea_output = 'hex'; "
    "SET extra_float_digits = 1; SET jit = off; SET tcp_keepalives_idle = 20; SET tcp_keepalives_interval = 5; "
    "SET tcp_keepalives_count = 3; SET tcp_user_timeout = 15000; "
    "SELECT pid, backend_start FROM pg_catalog.pg_stat_activity WHERE pid = pg_catalog.pg_backend_pid()";

using namespace std::chrono_literals;
constexpr std::array Silences = {10000ms, 30000ms}; // by Patience; the long one leaves the server its own 20 seconds
std::optional<std::chrono::milliseconds> g_silenceForTests;

std::chrono::milliseconds SilenceOf(PostgresConnection::Patience patience)
{
    return g_silenceForTests.value_or(Silences.at(static_cast<std::size_t>(patience)));
}

constexpr int AttemptsPause = 5;       // times as long as a failed attempt took
constexpr qint64 LongestPause = 15000; // milliseconds
constexpr int StateLooks = 40;
constexpr unsigned long PauseBetweenLooks = 50; // milliseconds
} // namespace

struct PostgresConnection::Line
{
    explicit Line(const std::string& text) : connection(text), quiet(connection), watch(connection.sock())
    {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
        // The library would connect again by itself, and all locks would be gone without a word.
        connection.inhibit_reactivation(true);
#pragma GCC diagnostic pop
    }

    const std::string& Prepared(const std::string& statement)
    {
        std::string& name = names[statement];
        if (name.empty()) {
            name = "s" + std::to_string(names.size());
            connection.prepare(name, statement);
        }
        return name;
    }

    pqxx::connection connection;
    pqxx::quiet_errorhandler quiet;
    AnswerWatch watch;
    std::map<std::string, std::string> names; // of the statements
};

PostgresConnection::PostgresConnection(const PlannerAddress& address, const QString& name,
                                       std::function<void()> welcome)
    : m_address(address), m_name(name), m_welcome(std::move(welcome))
{
}

PostgresConnection::~PostgresConnection() = default;

void PostgresConnection::SetPatienceForTests(std::chrono::milliseconds both)
{
    g_silenceForTests.reset();
    if (both > 0ms) g_silenceForTests = both;
}

int PostgresConnection::Socket() const
{
    return m_session->connection.sock();
}

int PostgresConnection::Process() const
{
    return m_session ? m_session->connection.backendpid() : 0;
}

void PostgresConnection::Connect()
{
    waiting::Before();
    if (m_session && !m_session->connection.is_open()) Break();
    // What belongs to a transaction that is lost must not be written by itself.
    if (m_lost) throw *m_lost;
    if (m_session) return;
    if (m_attemptTook > 0 && m_sinceAttempt.elapsed() < std::min(m_attemptTook * AttemptsPause, LongestPause))
        throw BrokenConnectionError(m_name, "it could not be reached a moment ago.");
    m_sinceAttempt.start();
    auto end = qScopeGuard([this] {
        m_attemptTook = m_sinceAttempt.restart();
        Break();
    });
    const Backend former = std::exchange(m_backend, Open());
    End(former);
    m_welcome();
    end.dismiss();
    m_attemptTook = 0;
}

PostgresConnection::Backend PostgresConnection::Open()
{
    try {
        m_session =
            std::make_unique<Line>(m_address.Connection() + Waiting + "application_name='" + sessionname::Own() + '\'');
    } catch (const pqxx::failure& error) {
        throw BrokenConnectionError(m_name, error.what());
    } catch (const std::system_error& error) {
        throw BrokenConnectionError(m_name, error.what()); // nobody would bound the wait for an answer
    }
    const pqxx::result told = Perform(Patience::Usual, [](pqxx::nontransaction& work) { return work.exec(Settings); });
    // A pooler hands each transaction to whichever session is free, and locks would lie in another's.
    if (told.size() != 1 || NumberOf(told[0][0]) != Process())
        throw RunTimeError{BrokenConnection,
                           u"'%1' cannot be opened: there is a connection pooler before the server, "
                           "which would lose the locks of days. Please use the server's own port."_s.arg(m_name)};
    return {std::to_string(Process()), TextOf(told[0][1]).toStdString()};
}

// After a pulled cable the server can take half a minute to see that the former session is over, and would keep its
// locks from its own user for so long.
void PostgresConnection::End(const Backend& former)
{
    if (former.process.empty()) return;
    Ask("SELECT pg_catalog.pg_terminate_backend(pid) FROM pg_catalog.pg_stat_activity "
        "WHERE pid = $1::int4 AND backend_start = $2::timestamptz",
        {former.process, former.start});
}

void PostgresConnection::Break()
{
    {
        // The library says good-bye to a server that is still there.
        std::optional<AnswerWatch::Call> call;
        if (m_session) call.emplace(m_session->watch, SilenceOf(Patience::Usual));
        if (m_onBreak) m_onBreak(); // what belongs to the session goes before it
    }
    m_session.reset();
    m_reading = m_hasStep = false;
    if (m_writing && !m_lost) m_lost = BrokenConnectionError(m_name);
}

RunTimeError PostgresConnection::Lost(const char* detail)
{
    const bool isSilent = m_session && m_session->watch.HasShut();
    const RunTimeError error = BrokenConnectionError(m_name, isSilent ? "it does not answer." : detail);
    if (m_writing && !m_lost) m_lost = error;
    Break();
    return error;
}

RunTimeError PostgresConnection::Failure(const pqxx::sql_error& error)
{
    if (EndsSession(error) || !m_session->connection.is_open()) return Lost(error.what());
    return RunTimeErrorOf(error, m_writing, m_name);
}

// The server answers the commit of a spoilt transaction with no error, though nothing of it is kept. A step of a group
// is undone alone.
RunTimeError PostgresConnection::Spoiling(const RunTimeError& error)
{
    if (m_writing && !m_inStep && !m_lost) m_lost = error;
    return error;
}

template <typename Step>
auto PostgresConnection::Translated(Patience patience, Step&& step)
{
    try {
        const AnswerWatch::Call call(m_session->watch, SilenceOf(patience));
        return step();
    } catch (const pqxx::sql_error& error) {
        throw Spoiling(Failure(error));
    } catch (const pqxx::transaction_rollback&) {
        throw Spoiling(RolledBackError(m_writing, m_name));
    } catch (const pqxx::failure&) {
        throw Lost(); // what the library says of it helps nobody
    } catch (const std::logic_error&) {
        throw Spoiling(SenselessAnswerError()); // the library's own where it does not understand what it gets
    }
}

template <typename Step>
pqxx::result PostgresConnection::Perform(Patience patience, Step&& step)
{
    return Translated(patience, [&] {
        pqxx::nontransaction work(m_session->connection);
        return step(work);
    });
}

pqxx::result PostgresConnection::Ask(const std::string& statement, const Values& values, Patience patience)
{
    Connect();
    const pqxx::result result = Perform(patience, [&](pqxx::nontransaction& work) {
        std::vector<const char*> parameters;
        for (const auto& value : values)
            parameters.push_back(value ? value->c_str() : nullptr);
        return work.exec_prepared(m_session->Prepared(statement), pqxx::prepare::make_dynamic_params(parameters));
    });
    return result;
}

QString PostgresConnection::AskOne(const std::string& statement, const Values& values)
{
    const pqxx::result result = Ask(statement, values);
    if (result.empty()) throw SenselessAnswerError();
    return TextOf(result[0][0]);
}

void PostgresConnection::Command(const char* text, Patience patience)
{
    Connect();
    Perform(patience, [&](pqxx::nontransaction& work) { return work.exec(text); });
}

void PostgresConnection::Do(const std::function<void(pqxx::connection&)>& step)
{
    Translated(Patience::Usual, [&] { step(m_session->connection); });
}

void PostgresConnection::Listen()
{
    Connect();
    Do([](pqxx::connection& library) { library.get_notifs(); });
    if (!m_session->connection.is_open()) throw Lost();
}

void PostgresConnection::BeginRead()
{
    if (!m_reading && !m_writing) {
        Command("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY");
        m_reading = true;
    }
    ++m_reads;
}

void PostgresConnection::EndRead()
{
    if (--m_reads == 0) StopReading();
}

void PostgresConnection::StopReading()
{
    if (!std::exchange(m_reading, false)) return;
    try {
        Perform(Patience::Usual, [](pqxx::nontransaction& work) { return work.exec("COMMIT"); });
    } catch (const RunTimeError&) {
        // Nothing was written, and a break has been noted.
    }
}

void PostgresConnection::Write(const std::function<void()>& step)
{
    if (m_writing) return WriteInGroup(step);
    BeginWrite();
    auto rollback = qScopeGuard([this] { Rollback(); });
    step();
    rollback.dismiss();
    Commit();
}

// A failing statement spoils the whole transaction; a point to go back to leaves the others of the group.
void PostgresConnection::WriteInGroup(const std::function<void()>& step)
{
    if (m_lost) throw *m_lost;
    Command(std::exchange(m_hasStep, true) ? "RELEASE SAVEPOINT step; SAVEPOINT step" : "SAVEPOINT step");
    const QScopedValueRollback inStep(m_inStep, true);
    try {
        step();
    } catch (const RunTimeError& failure) {
        if (!m_lost) UndoStep(failure);
        throw;
    }
}

void PostgresConnection::UndoStep(const RunTimeError& failure)
{
    try {
        Command("ROLLBACK TO SAVEPOINT step");
    } catch (const RunTimeError&) {
        if (!m_lost) m_lost = failure;
    }
}

void PostgresConnection::BeginWrite()
{
    if (m_writing) RaiseSaveUnderWay(m_name);
    // What was read may be old by now, so a write never grows out of a read.
    StopReading();
    Command("BEGIN ISOLATION LEVEL READ COMMITTED READ WRITE");
    m_writing = true;
    m_transaction.clear();
}

void PostgresConnection::Commit()
{
    if (const auto lost = m_lost) {
        Rollback();
        throw *lost;
    }
    try {
        Command("COMMIT", Patience::Long);
    } catch (const RunTimeError& failure) {
        const bool broken = !m_session;
        Rollback();
        if (!broken || m_transaction.empty()) throw;
        return FindOutWhetherCommitted(failure);
    }
    m_writing = m_hasStep = false;
}

void PostgresConnection::Rollback()
{
    const bool open = std::exchange(m_writing, false) && m_session;
    m_hasStep = false;
    m_lost.reset();
    if (!open) return;
    try {
        Perform(Patience::Usual, [](pqxx::nontransaction& work) { return work.exec("ROLLBACK"); });
    } catch (const RunTimeError&) {
        // A session that cannot roll back is over, and the server does it.
        Break();
    }
}

// The server knows of each transaction what became of it, for whoever knows its number.
void PostgresConnection::FindOutWhetherCommitted(const RunTimeError& loss)
{
    std::string state;
    try {
        state = StateOf(m_transaction);
    } catch (const RunTimeError&) {
        state.clear();
    }
    if (state == "committed") return;
    if (state == "aborted") throw loss;
    throw RunTimeError{loss.Number, loss.Description + u" It is not known whether the change was saved."_s};
}

std::string PostgresConnection::StateOf(const std::string& transaction)
{
    std::string state;
    for (int look = 0; look < StateLooks; ++look) {
        state = AskOne("SELECT coalesce(pg_catalog.pg_xact_status($1::xid8), '')", {transaction}).toStdString();
        if (state != "in progress") break;
        QThread::msleep(PauseBetweenLooks); // until the server has ended the former session
    }
    return state;
}
