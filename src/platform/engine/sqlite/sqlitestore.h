// A planner in a file of its own, kept by SQLite: the Store behind most planners. No statement of it stays open between
// two calls: an open one would make another program's commit fail.
#pragma once

#include "platform/engine/likepattern.h"
#include "platform/engine/sqlite/openfiles.h"
#include "platform/engine/sqlite/sessiontable.h"
#include "platform/engine/sqlite/sqliteconnection.h"
#include "platform/engine/sqlite/sqltext.h"
#include "platform/engine/store.h"

#include <QHash>

#include <SQLiteCpp/Statement.h>

#include <tuple>
#include <vector>

class SqliteStore final : public Store
{
public:
    enum class File
    {
        Planner,
        Claimed, // by the caller, for himself alone: to be read, without locks of its own
        Empty    // just made: an empty planner is written into it
    };

    static void CheckFile(const QString& path); // raises what is wrong with it, before any lock is made beside it

    // The path is the real one of an existing file. Errors as DBEngine::OpenDatabase.
    SqliteStore(const QString& path, bool exclusive, File file);

    QString Address() const override { return {}; }
    QStringList TableNames() override;
    TableDef Definition(const QString& table) override;
    void CreateTable(const TableDef& table) override;

    std::optional<Row> Find(const TableDef& table, const Index& index, From from, const Place& place,
                            const QString& likeField, const QString& likePattern) override;
    std::optional<Row> Fetch(const TableDef& table, qint64 id) override;

    qint64 Insert(const TableDef& table, const std::vector<QVariant>& values) override;
    void Replace(const TableDef& table, const Row& old, const std::vector<QVariant>& values) override;
    void Erase(const TableDef& table, const Row& old) override;

    void TryLock(const TableDef& table, qint64 id) override;
    bool Holds(const TableDef& table, qint64 id) const override;
    void Unlock(const TableDef& table, qint64 id) override;

    void BeginRead() override;
    void Expect(const TableDef&, const Index&, const QVariantList&) override {} // nothing is far away
    void EndRead() override;
    void BeginWrite() override;
    void Commit() override;
    void Rollback() override;

    void BackUp(const QString& path) override;
    void Refresh() override;
    void OnChange(ChangeListener) override {} // nobody tells a file's readers
    void Close() override;

private:
    enum class Verb
    {
        Find,
        Fetch,
        Insert,
        Replace,
        Erase
    };
    // Verb, table, and for a Find the rows, the direction, and the fields walked along and searched.
    using StatementKey = std::tuple<Verb, Rows, bool, QString, QString, QString>;
    using StatementView = std::tuple<Verb, Rows, bool, const QString&, const QString&, const QString&>;

    template <typename Text>
    SQLite::Statement& Prepared(const StatementView& view, Text&& text);
    SQLite::Statement& PreparedFor(const TableDef& table, Verb verb, std::string (*text)(const TableDef&));
    std::optional<Row> FindOnce(const TableDef& table, const Index& index, LookUp lookUp, const Place& place,
                                const QString& likeField);
    void WriteRow(SQLite::Statement& statement);
    void RegisterMatches();
    plannerformat::HeldRecord RecordOf(const TableDef& table, qint64 id);

    const QString m_path;
    std::unique_ptr<OpenFile> m_openFile; // before the connection: the mode is given back when the file is closed
    std::unique_ptr<ByteLocks> m_locks;
    std::unique_ptr<Session> m_session;
    std::optional<SqliteConnection> m_connection;
    std::vector<std::pair<StatementKey, SQLite::Statement>> m_statements; // after the connection, which outlives them
    QHash<QString, qint64> m_tableNumbers;
    std::optional<LikePattern> m_like; // what the SQL function "matches" asks just now
};
