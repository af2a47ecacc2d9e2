#include "platform/engine/sql/sqltext.h"

#include <algorithm>
#include <array>

namespace {
const QString Id = SqlText::Quoted(IdColumn);
const QString Returning = " RETURNING "_L1 + Id;

template <typename Form>
QString Each(const TableDef& table, QLatin1StringView separator, Form&& form)
{
    QStringList parts;
    for (std::size_t i = 0; i < table.Fields.size(); ++i)
        parts += form(SqlText::Quoted(table.Fields[i].Name), i);
    return parts.join(separator);
}

QString Names(const TableDef& table)
{
    return Each(table, ", "_L1, [](const QString& name, std::size_t) { return name; });
}

QString Columns(const TableDef& table)
{
    return Id + ", "_L1 + Names(table);
}

// By LookUp::Key; the value follows if the key is bound.
constexpr std::array Comparisons = {"1 = 1"_L1, " = "_L1, " > "_L1, " < "_L1, " IS NULL"_L1, " IS NOT NULL"_L1};

QString Condition(const LookUp& lookUp, const QString& key, const QString& value, const QString& beyond)
{
    if (lookUp.key == LookUp::Any) return lookUp.pastId ? beyond : Comparisons[LookUp::Any];
    const QString ofKey = key + Comparisons[lookUp.key] + (lookUp.BindsKey() ? value : QString());
    return lookUp.pastId ? ofKey + " AND "_L1 + beyond : ofKey;
}
} // namespace

QVarLengthArray<LookUp, 3> LookUpsFor(const Index& index, From from, bool keyIsNull)
{
    const bool forward = from == From::First || from == From::AtKey || from == From::After;
    const LookUp::Key ofKey = keyIsNull ? LookUp::None : LookUp::Equal;
    if (from == From::First || from == From::Last) return {{LookUp::Any, false, forward}};
    if (from == From::AtKey) return {{ofKey, false, forward}};
    if (index.Fields.isEmpty()) return {{LookUp::Any, true, forward}};
    const bool ascending = IsDescending(index) != forward;
    QVarLengthArray<LookUp, 3> lookUps = {{ofKey, true, forward}};
    if (!keyIsNull) lookUps.push_back({ascending ? LookUp::Greater : LookUp::Less, false, forward});
    if (keyIsNull == ascending) lookUps.push_back({keyIsNull ? LookUp::Some : LookUp::None, false, forward});
    return lookUps;
}

SqlText::SqlText(const SqlDialect& dialect, const QString& schema)
    : m_dialect(dialect), m_prefix(schema.isEmpty() ? QString() : Quoted(schema) + u'.')
{
}

QString SqlText::Quoted(QString name)
{
    return u'"' + name.replace(u'"', "\"\""_L1) + u'"';
}

QString SqlText::Qualified(const QString& table) const
{
    return m_prefix + Quoted(table);
}

QString SqlText::Mark(std::size_t number) const
{
    return QChar(m_dialect.mark) + QString::number(number);
}

QString SqlText::Marks(std::size_t first, std::size_t count) const
{
    QStringList marks;
    for (std::size_t i = 0; i < count; ++i)
        marks += Mark(first + i);
    return marks.join(", "_L1);
}

// Here a null equals a null.
QString SqlText::Unchanged(const TableDef& table, std::size_t first) const
{
    return Id + " = "_L1 + Mark(first) + " AND "_L1 + Each(table, " AND "_L1, [&](const QString& name, std::size_t i) {
               return name + " IS NOT DISTINCT FROM "_L1 + Mark(first + 1 + i);
           });
}

QString SqlText::KeyOrder(const Index& index, bool ascending) const
{
    return Quoted(KeyField(index)) + (ascending ? m_dialect.ascending : m_dialect.descending);
}

QString SqlText::Order(const Index& index, bool forward) const
{
    const QString id = Id + (forward ? " ASC"_L1 : " DESC"_L1);
    return index.Fields.isEmpty() ? id : KeyOrder(index, IsDescending(index) != forward) + ", "_L1 + id;
}

QString SqlText::Find(const TableDef& table, const Index& index, std::span<const LookUp> lookUps,
                      const QString& soughtField, int limit) const
{
    const std::size_t keys = std::ranges::any_of(lookUps, &LookUp::BindsKey);
    const std::size_t ids = std::ranges::any_of(lookUps, &LookUp::pastId);
    const bool forward = lookUps.front().forward;
    const QString order = Order(index, forward), beyond = Id + (forward ? " > "_L1 : " < "_L1) + Mark(keys + 1);
    QString sought;
    if (!soughtField.isEmpty()) {
        const bool isMemo = table.Fields[FieldNumber(table, soughtField)].Type == dbMemo;
        sought =
            " AND "_L1 +
            QString(isMemo ? m_dialect.memoFits : m_dialect.textFits).arg(Quoted(soughtField), Mark(keys + ids + 1));
    }
    QStringList parts;
    for (const LookUp lookUp : lookUps) {
        const QString condition = Condition(lookUp, Quoted(KeyField(index)), Mark(1), beyond);
        parts += u"SELECT "_s + Columns(table) + ", "_L1 + QString::number(parts.size()) + " FROM "_L1 +
                 Qualified(table.Name) + " WHERE "_L1 + condition + sought + " ORDER BY "_L1 + order + " LIMIT "_L1 +
                 QString::number(limit);
    }
    if (parts.size() == 1) return parts.front();
    return "SELECT * FROM (("_L1 + parts.join(") UNION ALL ("_L1) + ")) AS found ORDER BY "_L1 +
           QString::number(table.Fields.size() + 2) + ", "_L1 + order + " LIMIT "_L1 + QString::number(limit);
}

QString SqlText::FindKeys(const TableDef& table, const Index& index) const
{
    return "SELECT "_L1 + Columns(table) + " FROM "_L1 + Qualified(table.Name) + " WHERE "_L1 +
           Quoted(KeyField(index)) + " = ANY ("_L1 + Mark(1) + ") ORDER BY "_L1 + Order(index, true);
}

QString SqlText::Fetch(const TableDef& table) const
{
    return "SELECT "_L1 + Columns(table) + " FROM "_L1 + Qualified(table.Name) + " WHERE "_L1 + Id + " = "_L1 + Mark(1);
}

QString SqlText::Insert(const TableDef& table, std::size_t rows) const
{
    QStringList values;
    for (std::size_t row = 0; row < rows; ++row)
        values += u'(' + Marks(1 + row * table.Fields.size(), table.Fields.size()) + u')';
    return "INSERT INTO "_L1 + Qualified(table.Name) + " ("_L1 + Names(table) + ") VALUES "_L1 + values.join(", "_L1) +
           Returning;
}

QString SqlText::Restore(const TableDef& table) const
{
    return "INSERT OR IGNORE INTO "_L1 + Qualified(table.Name) + " ("_L1 + Columns(table) + ") VALUES ("_L1 +
           Marks(1, table.Fields.size() + 1) + u')' + Returning;
}

QString SqlText::Replace(const TableDef& table) const
{
    const QString assignments =
        Each(table, ", "_L1, [&](const QString& name, std::size_t i) { return name + " = "_L1 + Mark(1 + i); });
    return "UPDATE "_L1 + Qualified(table.Name) + " SET "_L1 + assignments + " WHERE "_L1 +
           Unchanged(table, table.Fields.size() + 1) + Returning;
}

QString SqlText::Erase(const TableDef& table) const
{
    return "DELETE FROM "_L1 + Qualified(table.Name) + " WHERE "_L1 + Unchanged(table, 1) + Returning;
}

QString SqlText::CreateTable(const TableDef& table) const
{
    const QString columns = Each(table, QLatin1StringView(), [&](const QString& name, std::size_t i) {
        return ", "_L1 + name + u' ' + DeclaredType(m_dialect, table.Fields[i]);
    });
    return "CREATE TABLE "_L1 + Qualified(table.Name) + " ("_L1 + Id + u' ' + m_dialect.idType + columns + u')';
}

QString SqlText::CreateIndex(const TableDef& table, const Index& index) const
{
    return (index.Primary ? "CREATE UNIQUE INDEX "_L1 : "CREATE INDEX "_L1) + Quoted(index.Name) + " ON "_L1 +
           Qualified(table.Name) + " ("_L1 + KeyOrder(index, !IsDescending(index)) + u')';
}
