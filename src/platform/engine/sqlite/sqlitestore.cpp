#include "platform/engine/sqlite/sqlitestore.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/enginerefusals.h"
#include "platform/engine/sqlite/onlinecopy.h"
#include "platform/engine/sqlite/sqliteschema.h"
#include "platform/engine/sqlite/sqlitevalues.h"
#include "platform/runtime/runtimeerror.h"

#include <QFile>

#include <sys/stat.h>

#include <sqlite3.h>

namespace {
using namespace engineerrors;

// A kept statement in use; it must be back at its start when the call ends, whichever way that is.
class StatementUse
{
public:
    explicit StatementUse(SQLite::Statement& statement) : m_statement(statement) {}
    ~StatementUse() { m_statement.tryReset(); }
    StatementUse(const StatementUse&) = delete;
    StatementUse& operator=(const StatementUse&) = delete;

private:
    SQLite::Statement& m_statement;
};

// Gives the number after the last one bound.
int BindRow(SQLite::Statement& statement, int number, const std::vector<QVariant>& values)
{
    for (const QVariant& value : values)
        BindValue(statement, number++, value);
    return number;
}

void BindOld(SQLite::Statement& statement, int number, const Row& old)
{
    statement.bind(number, int64_t{old.id});
    BindRow(statement, number + 1, old.values);
}

void Matches(sqlite3_context* context, int, sqlite3_value** arguments)
{
    const auto* like = static_cast<const std::optional<LikePattern>*>(sqlite3_user_data(context));
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(arguments[0]));
    const int size = sqlite3_value_bytes(arguments[0]);
    sqlite3_result_int(context, text && like->has_value() && (*like)->Matches(QByteArrayView(text, size)));
}

std::unique_ptr<ByteLocks> LocksBeside(const QString& path)
{
    struct stat status = {};
    ::stat(QFile::encodeName(path).constData(), &status);
    return std::make_unique<ByteLocks>(LockFileOf(path), status.st_mode, status.st_gid);
}
} // namespace

SqliteStore::SqliteStore(const QString& path, bool exclusive, File file) : m_path(path)
{
    m_connection.emplace(path);
    if (file == File::Claimed) {
        m_connection->SetUp();
        m_connection->CheckHead();
        return;
    }
    // Before any lock, so that no file of locks is left beside something that is no planner.
    if (file == File::Planner) m_connection->CheckUnlocked();
    m_openFile = std::make_unique<OpenFile>(path, exclusive, [this](bool whole) { m_connection->KeepWhole(whole); });
    m_connection->RefuseIfMoved(); // by a Compact or Repair that ended just before the lock was ours
    m_connection->SetUp();
    if (file == File::Empty) m_connection->WriteEmptyPlanner();
    m_connection->CheckHead();
    m_locks = LocksBeside(path);
    m_session = std::make_unique<Session>(*m_locks);
    RegisterMatches();
    m_openFile->Settle();
}

void SqliteStore::CheckFile(const QString& path)
{
    SqliteConnection(path).CheckUnlocked();
}

void SqliteStore::RegisterMatches()
{
    m_connection->Read([this] { m_connection->Library().createFunction("matches", 1, false, &m_like, Matches); });
}

QStringList SqliteStore::TableNames()
{
    QStringList names;
    m_connection->Read([&] { names = sqliteschema::TableNames(m_connection->Library()); });
    return names;
}

TableDef SqliteStore::Definition(const QString& table)
{
    TableDef definition;
    m_connection->Read([&] {
        const auto name = sqliteschema::StoredName(m_connection->Library(), table);
        if (!name) RaiseNoTable(table);
        definition = sqliteschema::Definition(m_connection->Library(), *name);
    });
    return definition;
}

void SqliteStore::CreateTable(const TableDef& table)
{
    m_connection->Write([&] {
        SQLite::Database& library = m_connection->Library();
        if (sqliteschema::StoredName(library, table.Name)) RaiseTableExists(table.Name);
        library.exec(sqltext::CreateTable(table));
        for (const Index& index : table.Indexes)
            library.exec(sqltext::CreateIndex(table, index));
    });
}

template <typename Text>
SQLite::Statement& SqliteStore::Prepared(const StatementView& view, Text&& text)
{
    // They are few: comparing them one by one is quicker than any order or hash of their names.
    for (auto& [key, statement] : m_statements)
        if (key == view) return statement;
    return m_statements.emplace_back(view, SQLite::Statement(m_connection->Library(), text())).second;
}

SQLite::Statement& SqliteStore::PreparedFor(const TableDef& table, Verb verb, std::string (*text)(const TableDef&))
{
    static const QString none;
    return Prepared({verb, Rows::All, true, table.Name, none, none}, [&] { return text(table); });
}

std::optional<Row> SqliteStore::Find(const TableDef& table, const Index& index, From from, const Place& place,
                                     const QString& likeField, const QString& likePattern)
{
    if (!likeField.isEmpty()) m_like.emplace(likePattern);
    std::optional<Row> row;
    m_connection->Read([&] {
        for (const LookUp lookUp : LookUpsFor(index, from, place.key.isNull())) {
            row = FindOnce(table, index, lookUp, place, likeField);
            if (row) return;
        }
    });
    return row;
}

std::optional<Row> SqliteStore::FindOnce(const TableDef& table, const Index& index, LookUp lookUp, const Place& place,
                                         const QString& likeField)
{
    SQLite::Statement& statement =
        Prepared({Verb::Find, lookUp.rows, lookUp.forward, table.Name, index.Fields, likeField},
                 [&] { return sqltext::Find(table, index, lookUp, likeField); });
    const StatementUse use(statement);
    int number = 1;
    if (BindsKey(lookUp.rows)) BindValue(statement, number++, place.key);
    if (BindsId(lookUp.rows)) statement.bind(number, int64_t{place.id});
    return statement.executeStep() ? std::optional(ReadRow(statement, table)) : std::nullopt;
}

std::optional<Row> SqliteStore::Fetch(const TableDef& table, qint64 id)
{
    std::optional<Row> row;
    m_connection->Read([&] {
        SQLite::Statement& statement = PreparedFor(table, Verb::Fetch, sqltext::Fetch);
        const StatementUse use(statement);
        statement.bind(1, int64_t{id});
        if (statement.executeStep()) row = ReadRow(statement, table);
    });
    return row;
}

qint64 SqliteStore::Insert(const TableDef& table, const std::vector<QVariant>& values)
{
    qint64 id = 0;
    m_connection->Write([&] {
        SQLite::Statement& statement = PreparedFor(table, Verb::Insert, sqltext::Insert);
        const StatementUse use(statement);
        BindRow(statement, 1, values);
        statement.exec();
        id = m_connection->Library().getLastInsertRowid();
    });
    return id;
}

// The old content is the guard: no row that somebody else has changed is ever written over.
void SqliteStore::WriteRow(SQLite::Statement& statement)
{
    if (statement.exec() == 0) RaiseDataChanged();
}

void SqliteStore::Replace(const TableDef& table, const Row& old, const std::vector<QVariant>& values)
{
    m_connection->Write([&] {
        SQLite::Statement& statement = PreparedFor(table, Verb::Replace, sqltext::Replace);
        const StatementUse use(statement);
        BindOld(statement, BindRow(statement, 1, values), old);
        WriteRow(statement);
    });
}

void SqliteStore::Erase(const TableDef& table, const Row& old)
{
    m_connection->Write([&] {
        SQLite::Statement& statement = PreparedFor(table, Verb::Erase, sqltext::Erase);
        const StatementUse use(statement);
        BindOld(statement, 1, old);
        WriteRow(statement);
    });
}

plannerformat::HeldRecord SqliteStore::RecordOf(const TableDef& table, qint64 id)
{
    const auto known = m_tableNumbers.find(table.Name);
    if (known != m_tableNumbers.end()) return {*known, id};
    qint64 number = 0;
    m_connection->Read([&] { number = sqliteschema::TableNumber(m_connection->Library(), table.Name); });
    m_tableNumbers[table.Name] = number;
    return {number, id};
}

void SqliteStore::TryLock(const TableDef& table, qint64 id)
{
    m_session->TakeRecord(RecordOf(table, id));
}

bool SqliteStore::Holds(const TableDef& table, qint64 id) const
{
    return m_session->Holds({m_tableNumbers.value(table.Name), id});
}

void SqliteStore::Unlock(const TableDef& table, qint64 id)
{
    m_session->GiveBackRecord({m_tableNumbers[table.Name], id});
}

void SqliteStore::BeginRead()
{
    m_connection->BeginRead();
}

void SqliteStore::EndRead()
{
    m_connection->EndRead();
}

void SqliteStore::BeginWrite()
{
    m_connection->BeginWrite();
}

void SqliteStore::Commit()
{
    m_connection->Commit();
}

void SqliteStore::Rollback()
{
    m_connection->Rollback();
}

void SqliteStore::BackUp(const QString& path)
{
    CopyOnline(*m_connection, m_path, path);
}

// Every look-up reads the file as it is; there is nothing to be fetched ahead.
void SqliteStore::Refresh() {}

void SqliteStore::Close()
{
    m_statements.clear();
    m_connection.reset();
    m_session.reset();
    m_locks.reset();
    m_openFile.reset();
}
