#include "platform/engine/postgres/postgresconnection.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/postgres/postgresdialect.h"
#include "platform/engine/sessionname.h"
#include "platform/engine/waiting.h"

#include <QDeadlineTimer>
#include <QScopeGuard>
#include <QThread>

#include <algorithm>
#include <array>

namespace {
using namespace engineerrors;

// Nothing may block the window for ever: no silent server, no pulled cable, no colleague's lock. Keepalives end a dead
// session in about half a minute, on both sides; its locks end with it. They do not detect a server that hangs on a
// running machine: ServerLine does.
constexpr const char* Waiting =
    "connect_timeout=5 keepalives=1 keepalives_idle=20 keepalives_interval=5 keepalives_count=3 "
    "tcp_user_timeout=15000 client_encoding=UTF8 ";

// The path is empty, so that objects of others in the database cannot replace the functions meant here.
constexpr auto Settings =
    "SET search_path = ''; SET synchronous_commit = on; SET statement_timeout = '20s'; SET lock_timeout = '1500ms'; "
    "SET idle_session_timeout = 0; SET idle_in_transaction_session_timeout = 0; SET default_transaction_isolation = "
    "'read committed'; SET default_transaction_read_only = off; SET datestyle = 'ISO'; SET bytea_output = 'hex'; "
    "SET extra_float_digits = 1; SET jit = off; SET tcp_keepalives_idle = 20; SET tcp_keepalives_interval = 5; "
    "SET tcp_keepalives_count = 3; SET tcp_user_timeout = 15000; "
    "SELECT pid, backend_start FROM pg_catalog.pg_stat_activity WHERE pid = pg_catalog.pg_backend_pid()"_L1;

using namespace std::chrono_literals;
constexpr std::array Silences = {10000ms,
                                 30000ms}; // by Patience; the long one exceeds the server's own limit of 20 seconds
std::optional<std::chrono::milliseconds> g_silenceForTests;

std::chrono::milliseconds SilenceOf(PostgresConnection::Patience patience)
{
    return g_silenceForTests.value_or(Silences.at(static_cast<std::size_t>(patience)));
}

constexpr int AttemptsPause = 5;                // times the duration of the failed attempt
constexpr qint64 LongestPause = 15000;          // milliseconds
constexpr int StatesPatience = 10000;           // milliseconds, for the end of the former session
constexpr unsigned long PauseBetweenLooks = 50; // milliseconds

struct Meaning
{
    const char* state; // the server's code or its beginning
    int number;        // in a write, and in a look-up
    int numberReading;
    const char16_t* text;
};

constexpr std::array Meanings = {
    Meaning{"40", CouldNotSave, Busy, u"'%1': another user is saving to it just now."}, // two writers at once
    Meaning{"23505", DuplicateKey, DuplicateKey,
            u"The changes were not saved to '%1': there is a record with the same key already."},
    Meaning{"55P03", CouldNotSave, Busy, u"'%1': another user is saving to it just now."},
    Meaning{"57014", CouldNotSave, Busy, u"'%1': the server took too long to answer."},
    Meaning{"53100", DiskFull, DiskFull, u"Could not save to '%1': the server's disk is full."},
    Meaning{"42501", ReadOnlyFile, ReadOnlyFile, u"You have no permission to use '%1' on its server in this way."},
    Meaning{"25006", ReadOnlyFile, ReadOnlyFile, u"Could not write '%1': its server may only be read."},
    Meaning{"42P07", TableExists, TableExists, u"'%1': the server has a table of this name already."},
    Meaning{"42P01", NoTable, NoTable, u"'%1': the server has not got this table any more."},
    Meaning{"22P05", TypeMismatch, TypeMismatch, u"'%1': the server's database cannot hold this character."},
};

RunTimeError RunTimeErrorOf(const ServerLine::Error& error, bool writing, const QString& name)
{
    const auto fits = [&](const Meaning& meaning) { return error.state.startsWith(meaning.state); };
    const auto found = std::ranges::find_if(Meanings, fits);
    if (found == Meanings.end()) return {InputOutput, u"'%1': the server reports: %2"_s.arg(name, error.text)};
    return {writing ? found->number : found->numberReading, QString::fromUtf16(found->text).arg(name)};
}

RunTimeError BrokenConnectionError(const QString& name, const QString& detail = {})
{
    const QString text = u"There is no connection to the server of '%1'"_s.arg(name);
    return {BrokenConnection, detail.isEmpty() ? text + u'.' : text + ": "_L1 + detail};
}

// Whether the code means that the session is over, even if the line still works.
bool EndsSession(const QByteArray& state)
{
    static constexpr std::array Ends = {"57P01", "57P02", "57P03", "57P05", "08"};
    return std::ranges::any_of(Ends, [&](const char* end) { return state.startsWith(end); });
}
} // namespace

PostgresConnection::PostgresConnection(const PlannerAddress& address, const QString& name, Events events)
    : SqlConnection(postgres::Dialect, name), m_address(address), m_events(std::move(events))
{
}

void PostgresConnection::SetPatienceForTests(std::chrono::milliseconds both)
{
    g_silenceForTests.reset();
    if (both > 0ms) g_silenceForTests = both;
}

void PostgresConnection::Connect()
{
    waiting::Before();
    if (m_session && !m_session->IsOpen()) Break();
    // Statements of a lost transaction must not run alone.
    if (m_lost) throw *m_lost;
    if (m_session) return;
    if (m_attemptTook > 0 && m_sinceAttempt.elapsed() < std::min(m_attemptTook * AttemptsPause, LongestPause))
        throw BrokenConnectionError(m_name, u"it could not be reached a moment ago."_s);
    m_sinceAttempt.start();
    auto end = qScopeGuard([this] {
        m_attemptTook = m_sinceAttempt.restart();
        Break();
    });
    const Backend former = std::exchange(m_backend, Open());
    End(former);
    m_events.begun();
    end.dismiss();
    m_attemptTook = 0;
}

PostgresConnection::Backend PostgresConnection::Open()
{
    try {
        m_session = std::make_unique<ServerLine>(m_address.Connection() + Waiting + "application_name='" +
                                                     sessionname::Label() + '\'',
                                                 [this](const QString& message, int process) {
                                                     if (process != Process()) m_events.told(message);
                                                 });
    } catch (const ServerLine::Error& error) {
        throw BrokenConnectionError(m_name, error.text);
    }
    const SqlRows told = Run(Settings, {}, Patience::Usual);
    // A connection pooler gives each transaction any free session, so locks would belong to another session.
    if (told.size() != 1 || told[0].Number(0) != Process())
        throw RunTimeError{BrokenConnection,
                           u"'%1' cannot be opened: there is a connection pooler before the server, "
                           "which would lose the locks of days. Please use the server's own port."_s.arg(m_name)};
    return {told[0].Number(0), told[0].Text(1)};
}

// After a pulled cable the server can take half a minute to end the former session. Until then that session's locks
// would shut out its own user.
void PostgresConnection::End(const Backend& former)
{
    if (former.process == 0) return;
    Ask(u"SELECT pg_catalog.pg_terminate_backend(pid) FROM pg_catalog.pg_stat_activity "
        "WHERE pid = $1::int4 AND backend_start = $2::timestamptz"_s,
        {former.process, former.start});
}

void PostgresConnection::Break()
{
    m_events.over(); // the session's own objects must go first
    m_session.reset();
    m_reading = m_hasStep = false;
    if (m_writing && !m_lost) m_lost = BrokenConnectionError(m_name);
}

RunTimeError PostgresConnection::Lost(const QString& detail)
{
    const RunTimeError error = BrokenConnectionError(m_name, detail);
    if (m_writing && !m_lost) m_lost = error;
    Break();
    return error;
}

SqlRows PostgresConnection::Run(const QString& statement, const SqlValues& values, Patience patience)
{
    try {
        return m_session->Ask(statement, values, SilenceOf(patience));
    } catch (const ServerLine::Error& error) {
        if (EndsSession(error.state) || !m_session->IsOpen()) throw Lost(error.text);
        const RunTimeError failure = RunTimeErrorOf(error, m_writing, m_name);
        // The server reports no error for the commit of a spoilt transaction, though it keeps nothing of it. A step of
        // a group is undone alone.
        if (m_writing && !m_inStep && !m_lost) m_lost = failure;
        StopReading(); // in a failed transaction every later look-up would fail
        throw failure;
    }
}

void PostgresConnection::Listen()
{
    Connect();
    m_session->TakeIn();
    if (!m_session->IsOpen()) throw Lost();
}

void PostgresConnection::PrepareWrite()
{
    Connect();
    m_transaction.clear();
    m_hasStep = false;
}

void PostgresConnection::BeginStep()
{
    Ask(std::exchange(m_hasStep, true) ? u"RELEASE SAVEPOINT step; SAVEPOINT step"_s : u"SAVEPOINT step"_s);
}

void PostgresConnection::UndoStep()
{
    Ask(u"ROLLBACK TO SAVEPOINT step"_s);
}

// Asks the server for the result of the transaction, by its number.
void PostgresConnection::ClearDoubt(const RunTimeError& failure)
{
    if (IsConnected() || m_transaction.isEmpty()) throw failure;
    QString state;
    try {
        state = StateOf(m_transaction);
    } catch (const RunTimeError&) {
        state.clear();
    }
    if (state == u"committed") return;
    if (state == u"aborted") throw failure;
    throw RunTimeError{failure.Number, failure.Description + u" It is not known whether the change was saved."_s};
}

QString PostgresConnection::StateOf(const QString& transaction)
{
    for (const QDeadlineTimer until(StatesPatience);; QThread::msleep(PauseBetweenLooks)) {
        const QString state =
            AskOne(u"SELECT coalesce(pg_catalog.pg_xact_status($1::xid8), '')"_s, {transaction}).toString();
        if (state != u"in progress" || until.hasExpired()) return state;
    }
}
