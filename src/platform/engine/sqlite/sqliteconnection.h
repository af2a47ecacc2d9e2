// One SQLite connection to a planner.
#pragma once

#include "platform/engine/sql/sqlconnection.h"
#include "platform/engine/sqlite/sqliteerrors.h"
#include "platform/engine/waiting.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <unordered_map>

class SqliteConnection final : public SqlConnection
{
public:
    explicit SqliteConnection(const QString& path); // an existing file; nothing is read yet. ReadOnlyFile

    // Raises what is wrong with the file (NotADatabase, ReadOnlyFile) without waiting for others: silent if they keep
    // it to themselves.
    void CheckUnlocked();
    void SetUp();
    void CheckHead();     // NotADatabase, Busy
    void CheckWhole();    // the head too; NotADatabase where anything in the file is damaged: reads all of it
    void RefuseIfMoved(); // InputOutput
    void WriteEmptyPlanner();
    void KeepWhole(bool whole); // while it is true other connections get nothing

    SQLite::Database& Library() { return m_database; }
    // With the library's errors as ours.
    template <typename Step>
    auto Do(Step&& step)
    {
        try {
            return step();
        } catch (const SQLite::Exception& error) {
            throw Failure(error);
        }
    }

protected:
    void Prepare() override;
    void PrepareWrite() override;
    SqlRows Run(const QString& statement, const SqlValues& values, Patience patience) override;
    bool HasTransaction() const override;

private:
    void CheckWritable() const;
    void CheckOwnership();
    RunTimeError ErrorOf(const SQLite::Exception& error) const;
    RunTimeError Failure(const SQLite::Exception& error);

    const QString m_path;
    SQLite::Database m_database;
    std::unordered_map<QString, SQLite::Statement> m_statements; // after the database, which outlives them
};
