#include "platform/engine/sql/sqlstore.h"

#include "platform/engine/enginerefusals.h"
#include "platform/engine/sessionname.h"

#include <QDateTime>

#include <algorithm>

namespace {
using namespace engineerrors;

// The rows that a search on a server fetches at once. The first batch is small, since the next hit is usually near.
constexpr int FirstLook = 4;
constexpr int LaterLook = 64;

// Numbers of the statements that a table has once.
enum Once : qint64
{
    Fetching,
    Inserting,
    Replacing,
    Erasing
};

// No two lists have the same number, and none has a number of Once.
qint64 NumberOf(std::span<const LookUp> lookUps, int limit)
{
    qint64 number = limit;
    for (const LookUp& lookUp : lookUps)
        number = number << 5 | (lookUp.key << 2 | lookUp.pastId << 1 | lookUp.forward);
    return number << 2 | static_cast<qint64>(lookUps.size());
}

QVariant ValueOf(QVariant cell, FieldType type)
{
    if (cell.isNull()) return {};
    if (type == dbText) return QString::fromUtf8(cell.toByteArray());
    if (type == dbDate) return QDateTime::fromString(QString::fromUtf8(cell.toByteArray()), Qt::ISODateWithMs);
    cell.convert(TypeOf(type));
    return cell;
}

QByteArray BytesOf(const QVariant& value)
{
    return value.typeId() == QMetaType::QByteArray ? value.toByteArray() : value.toString().toUtf8();
}

void Append(SqlValues& values, const SqlValues& more)
{
    values.insert(values.end(), more.begin(), more.end());
}

SqlValues OldOf(const Store::Row& row)
{
    SqlValues values = {row.id};
    Append(values, row.values);
    return values;
}
} // namespace

Store::Row SqlStore::RowOf(const SqlRow& found, const TableDef& table)
{
    Row row = {found.Number(0), {}};
    row.values.reserve(table.Fields.size());
    for (const Field& field : table.Fields)
        row.values.push_back(ValueOf(found[row.values.size() + 1], field.Type));
    return row;
}

SqlCatalog SqlStore::Catalog()
{
    return {Connection().Dialect(), m_schema,
            [this](const QString& statement, const SqlValues& values) { return Connection().Ask(statement, values); }};
}

QStringList SqlStore::TableNames()
{
    QStringList names;
    for (const SqlCatalog::Table& table : Catalog().Tables())
        names += table.name;
    return names;
}

SqlCatalog::Table SqlStore::TableOf(const QString& name)
{
    const auto table = Catalog().Find(name);
    if (!table) throw RunTimeError{NoTable, u"The planner has no table named '%1'."_s.arg(name)};
    return *table;
}

TableDef SqlStore::Definition(const QString& table)
{
    m_statements.clear(); // another program may have changed the table
    return Catalog().Definition(TableOf(table));
}

// A session is never refused its own lock, but two recordsets of one program must not overwrite each other.
void SqlStore::TryLock(const TableDef& table, qint64 id)
{
    if (!m_numbers.contains(table.Name)) m_numbers[table.Name] = TableOf(table.Name).number;
    const RecordName record = {m_numbers[table.Name], id};
    if (Holds(table, id)) throw ErrorOf(LockedBy, sessionname::Person(sessionname::User(), sessionname::Machine()));
    if (!Take(record)) throw ErrorOf(LockedBy, HolderOf(record));
    m_held.push_back(record);
}

bool SqlStore::Holds(const TableDef& table, qint64 id) const
{
    return std::ranges::find(m_held, RecordName{m_numbers.value(table.Name), id}) != m_held.end();
}

void SqlStore::Unlock(const TableDef& table, qint64 id)
{
    const RecordName record = {m_numbers.value(table.Name), id};
    if (std::erase(m_held, record) > 0) GiveBack(record);
}

void SqlStore::ForgetSession()
{
    m_numbers.clear();
    m_held.clear();
}

void SqlStore::CreateTable(const TableDef& table)
{
    Connection().Write([&] {
        if (Catalog().Find(table.Name))
            throw RunTimeError{TableExists, u"Table '%1' already exists."_s.arg(table.Name)};
        Connection().Ask(m_text.CreateTable(table));
        for (const Index& index : table.Indexes)
            Connection().Ask(m_text.CreateIndex(table, index));
    });
}

template <typename Make>
const QString& SqlStore::Kept(const TableDef& table, qint64 number, Make&& make, const QString& index,
                              const QString& soughtField)
{
    QString& statement = m_statements[{table.Name, table.Fields.size(), index, soughtField, number}];
    if (statement.isEmpty()) statement = make();
    return statement;
}

std::vector<Store::Row> SqlStore::LookOnce(const TableDef& table, const Index& index, std::span<const LookUp> lookUps,
                                           const Place& place, const Sought& sought, int limit)
{
    SqlValues values;
    if (std::ranges::any_of(lookUps, &LookUp::BindsKey)) values.push_back(place.key);
    if (std::ranges::any_of(lookUps, &LookUp::pastId)) values.emplace_back(place.id);
    const bool isSearch = !sought.field.isEmpty();
    if (isSearch) values.emplace_back(sought.text);
    const QString& statement = Kept(
        table, NumberOf(lookUps, limit), [&] { return m_text.Find(table, index, lookUps, sought.field, limit); },
        index.Fields, sought.field);
    // For a rare word a server reads every note before it answers.
    const auto patience = isSearch ? SqlConnection::Patience::Long : SqlConnection::Patience::Usual;
    return Rows(statement, values, table, patience);
}

std::vector<Store::Row> SqlStore::Look(const TableDef& table, const Index& index, From from, const Place& place,
                                       const Sought& sought, int limit)
{
    const auto lookUps = LookUpsFor(index, from, place.key.isNull());
    const std::span<const LookUp> all(lookUps.data(), static_cast<std::size_t>(lookUps.size()));
    if (Connection().Dialect().isFarAway) return LookOnce(table, index, all, place, sought, limit);
    for (std::size_t at = 0; at < all.size(); ++at)
        if (auto rows = LookOnce(table, index, all.subspan(at, 1), place, sought, limit); !rows.empty()) return rows;
    return {};
}

std::optional<Store::Row> SqlStore::Find(const TableDef& table, const Index& index, From from, const Place& place,
                                         const QString& likeField, const QString& likePattern)
{
    if (!likeField.isEmpty()) return FindLike(table, index, from, place, likeField, likePattern);
    std::vector<Row> rows = Look(table, index, from, place, {}, 1);
    return rows.empty() ? std::nullopt : std::optional(std::move(rows.front()));
}

const LikePattern& SqlStore::PatternOf(const QString& text)
{
    if (!m_pattern || m_pattern->Text() != text) m_pattern.emplace(text);
    return *m_pattern;
}

std::optional<Store::Row> SqlStore::FindLike(const TableDef& table, const Index& index, From from, Place place,
                                             const QString& likeField, const QString& likePattern)
{
    const LikePattern pattern = PatternOf(likePattern);
    const SqlDialect& dialect = Connection().Dialect();
    const std::size_t number = FieldNumber(table, likeField);
    QString text = dialect.knowsPatterns ? likePattern : QString::fromLatin1(pattern.Run());
    // A server shows non-text bytes with a backslash, and doubles the backslash itself.
    if (!dialect.knowsPatterns && table.Fields[number].Type == dbMemo) text.replace(u'\\', "\\\\"_L1);
    const Sought sought = {text.isEmpty() ? QString() : likeField, text};
    const From onward = from == From::Last || from == From::Before ? From::Before : From::After;
    for (int limit = dialect.knowsPatterns ? 1 : FirstLook;; limit = LaterLook, from = onward) {
        std::vector<Row> rows = Look(table, index, from, place, sought, limit);
        for (Row& row : rows)
            if (!row.values[number].isNull() && pattern.Matches(BytesOf(row.values[number]))) return std::move(row);
        if (from == From::AtKey || static_cast<int>(rows.size()) < limit) return {};
        place.id = rows.back().id;
        if (!index.Fields.isEmpty()) place.key = rows.back().values[FieldNumber(table, KeyField(index))];
    }
}

std::optional<Store::Row> SqlStore::Fetch(const TableDef& table, qint64 id)
{
    const QString& statement = Kept(table, Fetching, [&] { return m_text.Fetch(table); });
    const SqlRows found = Connection().Ask(statement, {id});
    return found.empty() ? std::nullopt : std::optional(RowOf(found.front(), table));
}

std::vector<Store::Row> SqlStore::Page(const TableDef& table, qint64 afterId, int rows)
{
    constexpr LookUp onward[] = {{LookUp::Any, true, true}};
    // Not kept, since the table may be a part of its fields.
    return Rows(m_text.Find(table, Index(), onward, {}, rows), {afterId}, table);
}

std::vector<Store::Row> SqlStore::Rows(const QString& statement, const SqlValues& values, const TableDef& table,
                                       SqlConnection::Patience patience)
{
    std::vector<Row> rows;
    for (const SqlRow& found : Connection().Ask(statement, values, patience))
        rows.push_back(RowOf(found, table));
    return rows;
}

// Compares the old content, so a row changed by another user is never overwritten.
SqlRow SqlStore::WriteRow(const QString& statement, const SqlValues& values, const TableDef&, const Values&,
                          const Values&)
{
    SqlRows written = Connection().Ask(statement, values);
    if (written.empty()) throw ErrorOf(RecordChanged);
    return std::move(written.front());
}

SqlRow SqlStore::Written(const QString& statement, const SqlValues& values, const TableDef& table, const Values& before,
                         const Values& after)
{
    SqlRow row;
    Connection().Write([&] { row = WriteRow(statement, values, table, before, after); });
    return row;
}

qint64 SqlStore::Insert(const TableDef& table, const std::vector<QVariant>& values)
{
    const QString& statement = Kept(table, Inserting, [&] { return m_text.Insert(table); });
    return Written(statement, values, table, values, values).Number(0);
}

void SqlStore::Replace(const TableDef& table, const Row& old, const std::vector<QVariant>& values)
{
    SqlValues all = values;
    Append(all, OldOf(old));
    const QString& statement = Kept(table, Replacing, [&] { return m_text.Replace(table); });
    Written(statement, all, table, old.values, values);
}

void SqlStore::Erase(const TableDef& table, const Row& old)
{
    const QString& statement = Kept(table, Erasing, [&] { return m_text.Erase(table); });
    Written(statement, OldOf(old), table, old.values, old.values);
}
