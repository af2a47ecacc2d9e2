#include "platform/engine/postgres/serverline.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/sql/sqldialect.h"
#include "platform/runtime/runtimeerror.h"

#include <QDateTime>
#include <QScopeGuard>

#include <linux/tcp.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <algorithm>
#include <poll.h>

namespace {
using Clock = std::chrono::steady_clock;
using Milliseconds = ServerLine::Milliseconds;

constexpr Milliseconds BetweenLooks{500};
constexpr Oid TypeBool = 16, TypeBytes = 17; // of the server's types

// The bytes acknowledged and sent by the other machine. 0 for a local socket, which needs no time for the way.
unsigned long long BytesOf(int socket)
{
    tcp_info info = {};
    socklen_t size = sizeof info;
    if (::getsockopt(socket, IPPROTO_TCP, TCP_INFO, &info, &size) != 0) return 0;
    return info.tcpi_bytes_acked + info.tcpi_bytes_received;
}

class Silence
{
public:
    Silence(int socket, Milliseconds longest) : m_socket(socket), m_longest(longest), m_bytes(BytesOf(socket)) {}

    // Whether the silence has lasted too long.
    bool IsTooLong(bool hasMoved)
    {
        if (const auto bytes = BytesOf(m_socket); std::exchange(m_bytes, bytes) != bytes || hasMoved)
            m_end = Clock::now() + m_longest;
        return Clock::now() >= m_end;
    }
    int UntilNextLook() const
    {
        const auto left = std::chrono::ceil<Milliseconds>(m_end - Clock::now());
        return static_cast<int>(std::clamp(left, Milliseconds(0), BetweenLooks).count());
    }

private:
    int m_socket;
    Milliseconds m_longest;
    Clock::time_point m_end = Clock::now() + m_longest;
    unsigned long long m_bytes;
};

QByteArray Plain(const QString& text)
{
    if (text.contains(QChar(u'\0')))
        throw RunTimeError{engineerrors::TypeMismatch,
                           u"A text that holds the character 0 cannot be kept on a server."_s};
    return text.toUtf8();
}

QByteArray ArrayOf(const QStringList& texts)
{
    QStringList parts;
    for (QString text : texts)
        parts += u'"' + text.replace(u'\\', "\\\\"_L1).replace(u'"', "\\\""_L1) + u'"';
    return Plain(u'{' + parts.join(u',') + u'}');
}

QByteArray TextOf(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Float:
        return QByteArray::number(value.toFloat(), 'g', 9);
    case QMetaType::QDateTime:
        return value.toDateTime().toString(DateFormat).toLatin1();
    case QMetaType::QByteArray:
        return "\\x" + value.toByteArray().toHex();
    case QMetaType::QStringList:
        return ArrayOf(value.toStringList());
    default: // booleans, numbers, texts
        return Plain(value.toString());
    }
}
} // namespace

ServerLine::ServerLine(const std::string& address, Told told)
    : m_library(ClientLibrary::Load()), m_connection(m_library.PQconnectdb(address.c_str()), Ending{&m_library}),
      m_told(std::move(told))
{
    m_library.PQsetNoticeProcessor(
        m_connection.get(), [](void*, const char*) {}, nullptr);
    if (!IsOpen() || m_library.PQsetnonblocking(m_connection.get(), 1) != 0) Raise(nullptr);
}

bool ServerLine::IsOpen() const
{
    return !m_isOver && m_library.PQstatus(m_connection.get()) == CONNECTION_OK;
}

// The server parses and plans a statement each time that it is not prepared. One that comes twice will come often.
QByteArray ServerLine::NameOf(const QString& statement, Milliseconds longestSilence)
{
    const auto known = m_names.constFind(statement);
    if (known == m_names.cend()) return *m_names.insert(statement, {});
    if (!known->isEmpty()) return *known;
    const QByteArray name = 's' + QByteArray::number(++m_prepared);
    if (!m_library.PQsendPrepare(m_connection.get(), name, statement.toUtf8(), 0, nullptr)) Raise(nullptr);
    Answer(longestSilence);
    return *m_names.insert(statement, name);
}

bool ServerLine::Send(const QString& statement, const SqlValues& values, Milliseconds longestSilence)
{
    if (values.empty() && !statement.startsWith("SELECT"_L1)) // BEGIN and the like, or several statements
        return m_library.PQsendQuery(m_connection.get(), statement.toUtf8());
    std::vector<QByteArray> texts;
    std::vector<const char*> parameters;
    for (const QVariant& value : values)
        texts.push_back(value.isNull() ? QByteArray() : TextOf(value));
    for (std::size_t i = 0; i < values.size(); ++i)
        parameters.push_back(values[i].isNull() ? nullptr : texts[i].constData());
    const auto count = static_cast<int>(values.size());
    const QByteArray name = NameOf(statement, longestSilence);
    if (!name.isEmpty())
        return m_library.PQsendQueryPrepared(m_connection.get(), name, count, parameters.data(), nullptr, nullptr, 0);
    return m_library.PQsendQueryParams(m_connection.get(), statement.toUtf8(), count, nullptr, parameters.data(),
                                       nullptr, nullptr, 0);
}

// Waits for a result. If the line fails, the result says so.
void ServerLine::Await(Milliseconds longestSilence)
{
    Silence silence(Socket(), longestSilence);
    while (true) {
        const bool isSending = m_library.PQflush(m_connection.get()) > 0;
        if (!isSending && !m_library.PQisBusy(m_connection.get())) return;
        pollfd end = {Socket(), static_cast<short>(isSending ? POLLIN | POLLOUT : POLLIN), 0};
        const int ready = ::poll(&end, 1, silence.UntilNextLook());
        if (ready > 0 && (end.revents & ~POLLOUT) && !m_library.PQconsumeInput(m_connection.get())) return;
        if (!silence.IsTooLong(ready > 0)) continue;
        m_isOver = true;
        throw Error{{}, u"it does not answer."_s};
    }
}

ServerLine::Owned<PGresult> ServerLine::NextResult(Milliseconds longestSilence)
{
    Await(longestSilence);
    return {m_library.PQgetResult(m_connection.get()), Ending{&m_library}};
}

SqlRows ServerLine::Ask(const QString& statement, const SqlValues& values, Milliseconds longestSilence)
{
    // A prepared statement fails for good if another program changes the type of a column that it reads.
    auto forget = qScopeGuard([&] { m_names.remove(statement); });
    if (!Send(statement, values, longestSilence)) Raise(nullptr);
    SqlRows rows = Answer(longestSilence);
    forget.dismiss();
    return rows;
}

SqlRows ServerLine::Answer(Milliseconds longestSilence)
{
    Owned<PGresult> answer(nullptr, Ending{&m_library}), failure(nullptr, Ending{&m_library});
    while (auto result = NextResult(longestSilence)) {
        const ExecStatusType status = m_library.PQresultStatus(result.get());
        // A server that starts an unrequested copy would go on for ever.
        m_isOver = status == PGRES_COPY_IN || status == PGRES_COPY_OUT || status == PGRES_COPY_BOTH;
        if (m_isOver) break;
        if (status == PGRES_TUPLES_OK)
            answer = std::move(result);
        else if (status != PGRES_COMMAND_OK && status != PGRES_EMPTY_QUERY && !failure)
            failure = std::move(result);
    }
    HandOn();
    if (failure || m_isOver) Raise(failure.get());
    return answer ? RowsOf(answer.get()) : SqlRows();
}

void ServerLine::Raise(const PGresult* result) const
{
    const char* text = result ? m_library.PQresultErrorMessage(result) : m_library.PQerrorMessage(m_connection.get());
    const char* state = result ? m_library.PQresultErrorField(result, PG_DIAG_SQLSTATE) : nullptr;
    throw Error{state, QString::fromUtf8(text).section(u'\n', 0, 0).trimmed()};
}

QVariant ServerLine::CellOf(const PGresult* result, int row, int column) const
{
    if (m_library.PQgetisnull(result, row, column)) return {};
    const QByteArrayView text(m_library.PQgetvalue(result, row, column), m_library.PQgetlength(result, row, column));
    const Oid type = m_library.PQftype(result, column);
    if (type == TypeBool) return text == "t";
    if (type != TypeBytes) return text.toByteArray();
    if (!text.startsWith("\\x")) RaiseSenselessAnswer();
    return QByteArray::fromHex(QByteArray::fromRawData(text.data() + 2, text.size() - 2));
}

SqlRows ServerLine::RowsOf(const PGresult* result) const
{
    SqlRows rows(static_cast<std::size_t>(m_library.PQntuples(result)));
    for (int row = 0; row < m_library.PQntuples(result); ++row)
        for (int column = 0; column < m_library.PQnfields(result); ++column)
            rows[static_cast<std::size_t>(row)].cells.push_back(CellOf(result, row, column));
    return rows;
}

void ServerLine::TakeIn()
{
    m_library.PQconsumeInput(m_connection.get());
    HandOn();
}

void ServerLine::HandOn()
{
    while (const Owned<PGnotify> notice{m_library.PQnotifies(m_connection.get()), Ending{&m_library}})
        m_told(QString::fromUtf8(notice->extra), notice->be_pid);
}
