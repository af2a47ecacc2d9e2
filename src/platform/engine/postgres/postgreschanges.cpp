#include "platform/engine/postgres/postgreschanges.h"

#include "platform/engine/sql/sqltext.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <algorithm>

namespace {
constexpr qsizetype LongestKey = 500; // the server takes messages of less than 8000 bytes
constexpr int BetweenAttempts = 3000; // milliseconds at least
constexpr int PauseFactor = 30;       // times the duration of the failed attempt, which blocks the window
constexpr int ShortAttempt = 500;     // milliseconds; the host has answered
} // namespace

PostgresChanges::PostgresChanges(PostgresConnection& connection) : m_connection(connection)
{
    m_nextAttempt.setSingleShot(true);
    QObject::connect(&m_nextAttempt, &QTimer::timeout, &m_context, [this] { ConnectAgain(); });
}

PostgresChanges::~PostgresChanges()
{
    Stop();
}

void PostgresChanges::Start(const QString& channel)
{
    // The server may refuse: a standby server sends no notifications.
    m_connection.Ask("LISTEN "_L1 + SqlText::Quoted(channel));
    // Commits of others during the break were missed.
    if (std::exchange(m_wasConnected, true)) Take({});
    if (!QCoreApplication::instance()) return;
    m_notifier = new QSocketNotifier(m_connection.Socket(), QSocketNotifier::Read, &m_context);
    QObject::connect(m_notifier, &QSocketNotifier::activated, &m_context, [this] { Read(); });
}

void PostgresChanges::Lose()
{
    if (!m_notifier) return;
    Stop();
    m_nextAttempt.start(BetweenAttempts);
}

void PostgresChanges::Stop()
{
    m_nextAttempt.stop();
    if (!m_notifier) return;
    m_notifier->setEnabled(false);
    m_notifier->deleteLater(); // this may be a call from the notifier
    m_notifier = nullptr;
}

void PostgresChanges::Read()
{
    try {
        m_connection.Listen();
    } catch (const RunTimeError&) {
        // The session is over. The next call raises that, or gets a new one.
    }
}

// A host that does not answer would block the window for seconds at each attempt, so the next attempt waits for the
// person's next action.
void PostgresChanges::ConnectAgain()
{
    QElapsedTimer attempt;
    attempt.start();
    try {
        m_connection.Connect();
    } catch (const RunTimeError&) {
        const auto took = int(attempt.elapsed());
        if (took < ShortAttempt) m_nextAttempt.start(std::max(BetweenAttempts, PauseFactor * took));
    }
}

void PostgresChanges::Take(const QString& message)
{
    if (m_messages.isEmpty())
        QMetaObject::invokeMethod(
            &m_context, [this] { Deliver(); }, Qt::QueuedConnection);
    if (!m_messages.contains(message)) m_messages += message;
}

void PostgresChanges::Deliver()
{
    for (const QString& message : std::exchange(m_messages, {})) {
        const ChangeListener listener = m_listener; // the listener may remove itself
        if (!listener) continue;
        const qsizetype end = message.indexOf(u'\n');
        listener(message.left(end), end < 0 ? QVariant() : QVariant(message.mid(end + 1)));
    }
}

QString PostgresChanges::Message(const TableDef& table, const std::vector<QVariant>& values)
{
    QString message = table.Name;
    if (!table.Indexes.empty()) {
        const QVariant& key = values[FieldNumber(table, KeyField(table.Indexes.front()))];
        if (key.typeId() == QMetaType::QString && key.toString().size() <= LongestKey)
            message += u'\n' + key.toString();
    }
    return message;
}
