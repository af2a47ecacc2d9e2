// One SQLite connection to a planner and its transactions. Whatever fails, no transaction stays open that nobody knows
// of, and the connection can go on.
#pragma once

#include "platform/engine/sqlite/sqliteerrors.h"
#include "platform/engine/waiting.h"

#include <SQLiteCpp/Database.h>

#include <functional>
#include <optional>

class SqliteConnection
{
public:
    explicit SqliteConnection(const QString& path); // an existing file; nothing is read yet. 3051

    // Raises what is wrong with the file (3343, 3051) without waiting for others: silent if they keep it to themselves.
    void CheckUnlocked();
    void SetUp();
    void CheckHead();     // 3343, 3006
    void CheckWhole();    // 3343 where anything in the file is damaged; reads all of it
    void RefuseIfMoved(); // 3043
    void WriteEmptyPlanner();
    void KeepWhole(bool whole); // while it is true other connections get nothing

    SQLite::Database& Library() { return m_database; }

    template <typename Step>
    void Read(Step&& step)
    {
        waiting::Before();
        try {
            step();
        } catch (const SQLite::Exception& error) {
            throw Failure(error, Doing::Reading);
        }
    }
    void Write(const std::function<void()>& step); // within the WriteTransaction, or as one of its own

    // As the Store's calls of these names.
    void BeginRead();
    void EndRead();
    void BeginWrite();
    void Commit();
    void Rollback();

private:
    void CheckWritable() const;
    void CheckOwnership();
    bool InTransaction() const;
    void StopReading();
    RunTimeError ErrorOf(const SQLite::Exception& error, Doing doing) const;
    RunTimeError Failure(const SQLite::Exception& error, Doing doing);

    QString m_path;
    QString m_name;
    SQLite::Database m_database;
    int m_reads = 0;        // nested reads
    bool m_reading = false; // a read transaction is open
    bool m_writing = false;
    std::optional<RunTimeError> m_lost; // why the library gave the write up meanwhile
};
