// One session of a server. It waits for an answer only while bytes come or go, so a silent server never blocks the
// window for ever.
#pragma once

#include "platform/engine/postgres/clientlibrary.h"
#include "platform/engine/sql/sqlrows.h"

#include <QHash>

#include <chrono>
#include <functional>
#include <memory>
#include <string>

class ServerLine
{
public:
    struct Error
    {
        QByteArray state; // the server's code; empty if the line itself failed
        QString text;
    };
    using Milliseconds = std::chrono::milliseconds;
    // A message of another session, with the number of its server process.
    using Told = std::function<void(const QString& message, int process)>;

    ServerLine(const std::string& address, Told told); // Error; BrokenConnection without the library

    bool IsOpen() const; // as far as known
    int Process() const { return m_library.PQbackendPID(m_connection.get()); }
    int Socket() const { return m_library.PQsocket(m_connection.get()); }

    // Runs one statement with its values, or several that are no queries. Returns the rows of the last statement that
    // has some. Error; InputOutput for an invalid answer. After such a silence the session is over.
    SqlRows Ask(const QString& statement, const SqlValues& values, Milliseconds longestSilence);
    void TakeIn(); // reads messages that have arrived

private:
    struct Ending
    {
        const ClientLibrary* library;
        void operator()(PGconn* connection) const { library->PQfinish(connection); }
        void operator()(PGresult* result) const { library->PQclear(result); }
        void operator()(PGnotify* notice) const { library->PQfreemem(notice); }
    };
    template <typename Thing>
    using Owned = std::unique_ptr<Thing, Ending>;

    QByteArray NameOf(const QString& statement, Milliseconds longestSilence);
    bool Send(const QString& statement, const SqlValues& values, Milliseconds longestSilence);
    SqlRows Answer(Milliseconds longestSilence);
    void Await(Milliseconds longestSilence);
    Owned<PGresult> NextResult(Milliseconds longestSilence);
    void Raise(const PGresult* result) const;
    QVariant CellOf(const PGresult* result, int row, int column) const;
    SqlRows RowsOf(const PGresult* result) const;
    void HandOn();

    const ClientLibrary& m_library;
    Owned<PGconn> m_connection;
    Told m_told;
    QHash<QString, QByteArray> m_names; // of the statements asked before; empty if not prepared
    int m_prepared = 0;
    bool m_isOver = false;
};
