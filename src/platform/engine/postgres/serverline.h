// One session of a server. It waits for an answer only as long as something comes or goes: a server that falls silent
// never keeps the window for ever.
#pragma once

#include "platform/engine/postgres/clientlibrary.h"
#include "platform/engine/sql/sqlrows.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>

class ServerLine
{
public:
    struct Error
    {
        QByteArray state; // the server's code; empty where the line itself has failed
        QString text;
    };
    using Milliseconds = std::chrono::milliseconds;
    // What another session says, with the number of its server's process.
    using Told = std::function<void(const QString& message, int process)>;

    ServerLine(const std::string& address, Told told); // Error; BrokenConnection without the library

    bool IsOpen() const; // as far as it has been heard
    int Process() const { return m_library.PQbackendPID(m_connection.get()); }
    int Socket() const { return m_library.PQsocket(m_connection.get()); }

    // One statement and its values, or several statements without values; the rows of the last that gives some. Error;
    // InputOutput for an answer that makes no sense. After so long a silence the line is over.
    SqlRows Ask(const QString& statement, const SqlValues& values, Milliseconds longestSilence);
    void TakeIn(); // what has come meanwhile

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

    bool Send(const QByteArray& statement, const SqlValues& values);
    void Await(Milliseconds longestSilence);
    Owned<PGresult> NextResult(Milliseconds longestSilence);
    void Raise(const PGresult* result) const;
    QVariant CellOf(const PGresult* result, int row, int column) const;
    SqlRows RowsOf(const PGresult* result) const;
    void HandOn();

    const ClientLibrary& m_library;
    Owned<PGconn> m_connection;
    Told m_told;
    bool m_isOver = false;
};
