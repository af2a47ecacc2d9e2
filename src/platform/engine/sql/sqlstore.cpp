#include "platform/engine/sql/sqlstore.h"

#include "platform/engine/enginerefusals.h"
#include "platform/engine/likepattern.h"
#include "platform/engine/sessionname.h"

#include <QDateTime>

#include <algorithm>

namespace {
using namespace engineerrors;

constexpr int RowsOfPage = 200;
// How many rows a search from afar fetches at once: few at first, since the next hit is mostly near.
constexpr int FirstLook = 4;
constexpr int LaterLook = 64;

QVariant ValueOf(QVariant cell, FieldType type)
{
    if (cell.isNull()) return {};
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
    m_finds.clear(); // another program may have changed the table
    return Catalog().Definition(TableOf(table));
}

// A session is never refused its own lock, and two recordsets of one program must not write over each other either.
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

const QString& SqlStore::StatementOf(const TableDef& table, const Index& index, std::span<const LookUp> lookUps,
                                     const QString& soughtField, int limit)
{
    QString key = table.Name + u'\n' + index.Fields + u'\n' + soughtField + u'\n' + QString::number(limit);
    for (const LookUp& lookUp : lookUps)
        key += QChar(u'A' + 4 * lookUp.key + 2 * lookUp.pastId + lookUp.forward);
    QString& statement = m_finds[key];
    if (statement.isEmpty()) statement = m_text.Find(table, index, lookUps, soughtField, limit);
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
    std::vector<Row> rows;
    // For a rare word a server looks at every note before it answers.
    const auto patience = isSearch ? SqlConnection::Patience::Long : SqlConnection::Patience::Usual;
    for (const SqlRow& found :
         Connection().Ask(StatementOf(table, index, lookUps, sought.field, limit), values, patience))
        rows.push_back(RowOf(found, table));
    return rows;
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

std::optional<Store::Row> SqlStore::FindLike(const TableDef& table, const Index& index, From from, Place place,
                                             const QString& likeField, const QString& likePattern)
{
    const LikePattern pattern(likePattern);
    const SqlDialect& dialect = Connection().Dialect();
    const std::size_t number = FieldNumber(table, likeField);
    QString text = dialect.knowsPatterns ? likePattern : QString::fromLatin1(pattern.Run());
    // As a server shows bytes that are no text: a backslash doubled.
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
    const SqlRows found = Connection().Ask(m_text.Fetch(table), {id});
    return found.empty() ? std::nullopt : std::optional(RowOf(found.front(), table));
}

std::vector<Store::Row> SqlStore::Page(const TableDef& table, qint64 afterId)
{
    return Look(table, Index(), From::After, {{}, afterId}, {}, RowsOfPage);
}

// The old content is the guard: no row that somebody else has changed is ever written over.
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
    Connection().Write([&] {
        row = WriteRow(statement + " RETURNING "_L1 + SqlText::Quoted(IdColumn), values, table, before, after);
    });
    return row;
}

qint64 SqlStore::Insert(const TableDef& table, const std::vector<QVariant>& values)
{
    return Written(m_text.Insert(table), values, table, values, values).Number(0);
}

void SqlStore::Replace(const TableDef& table, const Row& old, const std::vector<QVariant>& values)
{
    SqlValues all = values;
    Append(all, OldOf(old));
    Written(m_text.Replace(table), all, table, old.values, values);
}

void SqlStore::Erase(const TableDef& table, const Row& old)
{
    Written(m_text.Erase(table), OldOf(old), table, old.values, old.values);
}
