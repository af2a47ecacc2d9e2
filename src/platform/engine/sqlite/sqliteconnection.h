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
    // An existing file; reads nothing yet. ReadOnlyFile. Without mayWrite nothing is written, nor a journal beside it.
    explicit SqliteConnection(const QString& path, bool mayWrite = true);

    // Raises the file's errors (NotADatabase, ReadOnlyFile) without waiting for others. Raises nothing if others have
    // locked the whole file.
    void CheckUnlocked();
    void SetUp();
    void CheckHead();     // NotADatabase, Busy
    void CheckWhole();    // includes CheckHead; reads all of the file, NotADatabase if anything is damaged
    void RefuseIfMoved(); // InputOutput
    void WriteEmptyPlanner();
    void KeepWhole(bool whole); // if true, other connections have no access

    SQLite::Database& Library() { return m_database; }
    // Converts the library's errors to ours.
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
    void ForgetPages() override;

private:
    void CheckWritable() const;
    void CheckOwnership();
    RunTimeError ErrorOf(const SQLite::Exception& error) const;
    RunTimeError Failure(const SQLite::Exception& error);

    const QString m_path;
    SQLite::Database m_database;
    std::unordered_map<QString, SQLite::Statement> m_statements; // after the database, which must outlive them
};
