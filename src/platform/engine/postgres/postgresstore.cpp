#include "platform/engine/postgres/postgresstore.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/enginerefusals.h"
#include "platform/engine/likepattern.h"
#include "platform/engine/postgres/postgresvalues.h"

#include <QScopeGuard>

namespace {
using namespace engineerrors;

// How many rows a search by text fetches at once: few at first, since the next hit is mostly near.
constexpr int FirstLook = 4;
constexpr int LaterLook = 64;
constexpr int RowsOfPage = 200;
constexpr std::size_t BytesOfInsert = 1 << 20;
constexpr std::size_t MaximalValues = 60000; // of one statement

void Append(PostgresConnection::Values& values, const std::vector<QVariant>& row)
{
    for (const QVariant& value : row)
        values.push_back(ParameterOf(value));
}

void AppendOld(PostgresConnection::Values& values, const Row& old)
{
    values.push_back(std::to_string(old.id));
    Append(values, old.values);
}

QByteArray BytesOf(const QVariant& value)
{
    return value.typeId() == QMetaType::QByteArray ? value.toByteArray() : value.toString().toUtf8();
}

// As the server shows bytes that are no text: a backslash doubled.
std::string RunOf(const LikePattern& pattern, FieldType type)
{
    QByteArray run = pattern.Run();
    return (type == dbMemo ? run.replace("\\", "\\\\") : run).toStdString();
}

std::string ChannelOf(const QString& id)
{
    return "orrelin_" + id.toStdString();
}
} // namespace

PostgresStore::PostgresStore(const PlannerAddress& address, const QString& name, bool exclusive, Planner planner)
    : m_name(name), m_address(address.Uri()), m_schemaName(address.Schema()),
      m_connection(address, name, [this] { Welcome(); }), m_planner(planner), m_locks(m_connection),
      m_openMode(m_connection, exclusive), m_changes(m_connection)
{
    m_connection.OnBreak([this] { Forget(); });
    m_connection.Connect();
}

PostgresStore::~PostgresStore()
{
    Close();
    m_connection.OnBreak(nullptr);
}

PostgresSchema PostgresStore::Schema()
{
    return {m_connection, m_schemaName};
}

void PostgresStore::Welcome()
{
    if (m_planner == Planner::New) return;
    const auto mark = Schema().FindMark();
    if (!mark || mark->version < 1)
        throw RunTimeError{NotADatabase,
                           u"'%1' cannot be opened: its server has no planner of this name."_s.arg(m_name)};
    if (mark->version > PostgresSchema::Version) RaiseNewer(m_name);
    if (!m_id.isEmpty() && m_id != mark->id)
        throw RunTimeError{BrokenConnection, u"The server of '%1' has another planner now. Please open it "
                                             "again."_s.arg(m_name)};
    m_openMode.Enter(mark->id, {mark->table, 0}, m_name);
    m_id = mark->id;
    const std::string channel = ChannelOf(mark->id);
    m_text.emplace(m_schemaName, QString::fromStdString(channel));
    m_changes.Start(channel);
}

void PostgresStore::Forget()
{
    m_locks.Forget();
    m_openMode.Forget();
    m_changes.Stop();
    m_tableNumbers.clear();
    m_expected.clear();
}

QStringList PostgresStore::TableNames()
{
    return Schema().TableNames();
}

PostgresSchema::Table PostgresStore::TableOf(const QString& name)
{
    const auto table = Schema().Find(name);
    if (!table) RaiseNoTable(name);
    return *table;
}

TableDef PostgresStore::Definition(const QString& table)
{
    return Schema().Definition(TableOf(table));
}

void PostgresStore::CreateTable(const TableDef& table)
{
    constexpr qsizetype LongestName = 63; // the server cuts longer ones, and two could become one
    QStringList names = {table.Name};
    for (const Field& field : table.Fields)
        names += field.Name;
    for (const Index& index : table.Indexes)
        names += index.Name;
    for (const QString& name : names)
        if (name.toUtf8().size() > LongestName)
            throw RunTimeError{InvalidArgument, u"The name '%1' is too long for a server."_s.arg(name)};
    m_connection.Write([&] {
        if (Schema().Find(table.Name) || table.Name == PostgresSchema::FormatTable) RaiseTableExists(table.Name);
        m_connection.Ask(m_text->CreateTable(table));
        for (const Index& index : table.Indexes)
            m_connection.Ask(m_text->CreateIndex(table, index));
    });
}

std::vector<Row> PostgresStore::Look(const TableDef& table, const Index& index, From from, const Place& place,
                                     const QString& runField, const std::string& run, int limit)
{
    const auto lookUps = LookUpsFor(index, from, place.key.isNull());
    PostgresConnection::Values values;
    if (std::ranges::any_of(lookUps, [](LookUp lookUp) { return BindsKey(lookUp.rows); }))
        values.push_back(ParameterOf(place.key));
    if (std::ranges::any_of(lookUps, [](LookUp lookUp) { return BindsId(lookUp.rows); }))
        values.push_back(std::to_string(place.id));
    if (!runField.isEmpty()) values.push_back(run);
    std::vector<Row> rows;
    // For a rare word the server looks at every note before it answers.
    const auto patience = runField.isEmpty() ? PostgresConnection::Patience::Usual : PostgresConnection::Patience::Long;
    for (const auto& found : m_connection.Ask(m_text->Find(table, index, lookUps, runField, limit), values, patience))
        rows.push_back(ReadRow(found, 1, table));
    return rows;
}

std::optional<Row> PostgresStore::Find(const TableDef& table, const Index& index, From from, const Place& place,
                                       const QString& likeField, const QString& likePattern)
{
    if (!likeField.isEmpty()) return FindLike(table, index, from, place, likeField, likePattern);
    if (from == From::AtKey)
        if (const auto* expected = Expected(table, index, place.key)) return *expected;
    std::vector<Row> rows = Look(table, index, from, place, {}, {}, 1);
    return rows.empty() ? std::nullopt : std::optional(std::move(rows.front()));
}

std::optional<Row> PostgresStore::FindLike(const TableDef& table, const Index& index, From from, Place place,
                                           const QString& likeField, const QString& likePattern)
{
    const LikePattern pattern(likePattern);
    const std::size_t number = FieldNumber(table, likeField);
    const std::string run = RunOf(pattern, table.Fields[number].Type);
    const QString runField = run.empty() ? QString() : likeField;
    const From onward = from == From::Last || from == From::Before ? From::Before : From::After;
    for (int limit = FirstLook;; limit = LaterLook, from = onward) {
        std::vector<Row> rows = Look(table, index, from, place, runField, run, limit);
        for (Row& row : rows)
            if (!row.values[number].isNull() && pattern.Matches(BytesOf(row.values[number]))) return std::move(row);
        if (from == From::AtKey || static_cast<int>(rows.size()) < limit) return {};
        place.id = rows.back().id;
        if (!index.Fields.isEmpty()) place.key = rows.back().values[FieldNumber(table, KeyField(index))];
    }
}

std::optional<Row> PostgresStore::Fetch(const TableDef& table, qint64 id)
{
    const pqxx::result found = m_connection.Ask(m_text->Fetch(table), {std::to_string(id)});
    return found.empty() ? std::nullopt : std::optional(ReadRow(found[0], 0, table));
}

std::vector<Row> PostgresStore::Page(const TableDef& table, qint64 afterId)
{
    std::vector<Row> rows;
    for (const auto& found : m_connection.Ask(m_text->Page(table, RowsOfPage), {std::to_string(afterId)}))
        rows.push_back(ReadRow(found, 0, table));
    return rows;
}

void PostgresStore::Expect(const TableDef& table, const Index& index, const QVariantList& keys)
{
    const bool byText = !index.Fields.isEmpty() && table.Fields[FieldNumber(table, KeyField(index))].Type == dbText;
    if (!byText || !m_connection.IsReading()) return;
    ExpectedRows expected;
    QStringList texts;
    for (const QVariant& key : keys) {
        expected.insert(key.toString(), std::nullopt);
        texts += key.toString();
    }
    try {
        const std::size_t field = FieldNumber(table, KeyField(index));
        for (const auto& found : m_connection.Ask(m_text->FindKeys(table, index), {ArrayOf(texts)})) {
            Row row = ReadRow(found, 1, table);
            std::optional<Row>& first = expected[row.values[field].toString()];
            if (!first) first = std::move(row);
        }
    } catch (const RunTimeError&) {
        return; // told by the look-ups themselves
    }
    m_expected[{table.Name, index.Fields}] = std::move(expected);
}

const std::optional<Row>* PostgresStore::Expected(const TableDef& table, const Index& index, const QVariant& key) const
{
    if (key.isNull() || !m_connection.IsReading()) return nullptr;
    const auto rows = m_expected.find({table.Name, index.Fields});
    if (rows == m_expected.end()) return nullptr;
    const auto row = rows->second.constFind(key.toString());
    return row == rows->second.cend() ? nullptr : &*row;
}

pqxx::row PostgresStore::Written(const std::string& statement, const PostgresConnection::Values& values)
{
    const pqxx::result written = m_connection.Ask(statement, values);
    // The old content is the guard: no row that somebody else has changed is ever written over.
    if (written.empty()) RaiseDataChanged();
    m_connection.NoteTransaction(TextOf(written[0][written.columns() - 1]).toStdString());
    return written[0];
}

qint64 PostgresStore::Insert(const TableDef& table, const std::vector<QVariant>& values)
{
    PostgresConnection::Values all;
    Append(all, values);
    const std::string message = PostgresChanges::Message(table, values);
    all.insert(all.end(), {message, message});
    qint64 id = 0;
    m_expected.clear();
    m_connection.Write([&] { id = NumberOf(Written(m_text->Insert(table), all)[0]); });
    return id;
}

void PostgresStore::InsertAll(const TableDef& table, const std::vector<Row>& rows)
{
    std::size_t at = 0;
    while (at < rows.size()) {
        PostgresConnection::Values values;
        std::size_t bytes = 0, count = 0;
        for (; at < rows.size() && bytes < BytesOfInsert && values.size() < MaximalValues; ++at, ++count) {
            Append(values, rows[at].values);
            for (std::size_t i = values.size() - rows[at].values.size(); i < values.size(); ++i)
                bytes += values[i] ? values[i]->size() : 0;
        }
        m_connection.Ask(m_text->InsertRows(table, count), values);
    }
}

// A lock that died with its connection may be another user's by now.
void PostgresStore::RefuseWithoutLock(const TableDef& table, qint64 id) const
{
    if (Holds(table, id)) return;
    throw RunTimeError{BrokenConnection,
                       u"The connection to the server of '%1' was broken, and the lock of this record with "
                       "it. Nothing was saved."_s.arg(m_name)};
}

void PostgresStore::Replace(const TableDef& table, const Row& old, const std::vector<QVariant>& values)
{
    RefuseWithoutLock(table, old.id);
    PostgresConnection::Values all;
    Append(all, values);
    AppendOld(all, old);
    all.insert(all.end(), {PostgresChanges::Message(table, old.values), PostgresChanges::Message(table, values)});
    m_expected.clear();
    m_connection.Write([&] { Written(m_text->Replace(table), all); });
}

void PostgresStore::Erase(const TableDef& table, const Row& old)
{
    RefuseWithoutLock(table, old.id);
    PostgresConnection::Values all;
    AppendOld(all, old);
    const std::string message = PostgresChanges::Message(table, old.values);
    all.insert(all.end(), {message, message});
    m_expected.clear();
    m_connection.Write([&] { Written(m_text->Erase(table), all); });
}

RecordLocks::Name PostgresStore::NameOf(const TableDef& table, qint64 id)
{
    auto known = m_tableNumbers.find(table.Name);
    if (known == m_tableNumbers.end()) known = m_tableNumbers.emplace(table.Name, TableOf(table.Name).number).first;
    return {known->second, static_cast<qint32>(id)};
}

void PostgresStore::TryLock(const TableDef& table, qint64 id)
{
    // What is read under the lock must be the latest state.
    m_connection.StopReading();
    m_expected.clear();
    m_connection.Connect(); // so that the number below belongs to the session
    m_locks.Take(NameOf(table, id));
}

bool PostgresStore::Holds(const TableDef& table, qint64 id) const
{
    const auto known = m_tableNumbers.find(table.Name);
    return known != m_tableNumbers.end() && m_locks.Holds({known->second, static_cast<qint32>(id)});
}

void PostgresStore::Unlock(const TableDef& table, qint64 id)
{
    if (Holds(table, id)) m_locks.GiveBack(NameOf(table, id));
}

void PostgresStore::BeginRead()
{
    if (!m_connection.IsReading()) m_expected.clear();
    m_connection.BeginRead();
}

void PostgresStore::EndRead()
{
    m_expected.clear();
    m_connection.EndRead();
}

void PostgresStore::BeginWrite()
{
    m_connection.BeginWrite();
    if (m_planner == Planner::Existing) return;
    auto rollback = qScopeGuard([this] { m_connection.Rollback(); });
    m_connection.NoteTransaction(m_connection.AskOne("SELECT pg_current_xact_id()::text").toStdString());
    Schema().Create();
    m_planner = Planner::Existing;
    Welcome();
    rollback.dismiss();
}

void PostgresStore::Commit()
{
    m_connection.Commit();
}

void PostgresStore::Rollback()
{
    m_connection.Rollback();
}

void PostgresStore::BackUp(const QString&)
{
    throw RunTimeError{NotSupported, u"A planner on a server is copied by the server's own means."_s};
}

void PostgresStore::Refresh()
{
    m_connection.Listen();
}

void PostgresStore::OnChange(ChangeListener listener)
{
    m_changes.SetListener(std::move(listener));
}

void PostgresStore::Close()
{
    m_openMode.Leave();
    m_connection.Break();
}

void PostgresStore::DropPlanner()
{
    Schema().Drop();
}
