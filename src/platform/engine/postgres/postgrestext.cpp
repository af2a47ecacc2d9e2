#include "platform/engine/postgres/postgrestext.h"

#include "platform/engine/storedform.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace {
struct DeclaredName
{
    FieldType type;
    QLatin1StringView name;
};

// A memo is bytes, since texts of a server hold neither a zero nor what is no UTF-8.
constexpr std::array DeclaredNames = {
    DeclaredName{dbBoolean, "boolean"_L1},
    DeclaredName{dbLong, "integer"_L1},
    DeclaredName{dbSingle, "real"_L1},
    DeclaredName{dbDate, "timestamp(3) without time zone"_L1},
    DeclaredName{dbText, "character varying"_L1},
    DeclaredName{dbMemo, "bytea"_L1},
};

QLatin1StringView TypeName(FieldType type)
{
    return std::ranges::find(DeclaredNames, type, &DeclaredName::type)->name;
}

const QString& Id()
{
    static const QString quoted = QuotedName(storedform::IdColumn);
    return quoted;
}

// A place for the value of this number, of the type.
QString Mark(std::size_t number, QLatin1StringView type)
{
    return u"$%1::%2"_s.arg(number).arg(type);
}

template <typename Form>
QString Each(const TableDef& table, QLatin1StringView separator, Form&& form)
{
    QStringList parts;
    for (std::size_t i = 0; i < table.Fields.size(); ++i)
        parts += form(QuotedName(table.Fields[i].Name), i, TypeName(table.Fields[i].Type));
    return parts.join(separator);
}

QString Columns(const TableDef& table)
{
    return Id() + ", "_L1 + Each(table, ", "_L1, [](const QString& name, auto, auto) { return name; });
}

QString Marks(const TableDef& table, std::size_t first)
{
    return Each(table, ", "_L1, [&](const QString&, std::size_t i, auto type) { return Mark(first + i, type); });
}

// A null equals itself here.
QString Unchanged(const TableDef& table, std::size_t first)
{
    return Id() + " = "_L1 + Mark(first, "integer"_L1) + " AND "_L1 +
           Each(table, " AND "_L1, [&](const QString& name, std::size_t i, auto type) {
               return name + " IS NOT DISTINCT FROM "_L1 + Mark(first + 1 + i, type);
           });
}

QString Condition(Rows rows, const QString& key, const QString& keyMark, const QString& idMark, bool forward)
{
    const QString beyond = Id() + QLatin1StringView(forward ? " > " : " < ") + idMark;
    switch (rows) {
    case Rows::All:
        return u"true"_s;
    case Rows::OfKey:
        return key + " = "_L1 + keyMark;
    case Rows::OfKeyPast:
        return key + " = "_L1 + keyMark + " AND "_L1 + beyond;
    case Rows::WithoutKeyPast:
        return key + " IS NULL AND "_L1 + beyond;
    case Rows::PastId:
        return beyond;
    case Rows::Greater:
        return key + " > "_L1 + keyMark;
    case Rows::Less:
        return key + " < "_L1 + keyMark;
    case Rows::WithoutKey:
        return key + " IS NULL"_L1;
    case Rows::WithKey:
        return key + " IS NOT NULL"_L1;
    }
    return {};
}

QString KeyOrder(const Index& index, bool ascending)
{
    return QuotedName(KeyField(index)) + QLatin1StringView(ascending ? " ASC NULLS FIRST" : " DESC NULLS LAST");
}

QString Order(const Index& index, bool forward)
{
    const QString id = Id() + QLatin1StringView(forward ? " ASC" : " DESC");
    if (index.Fields.isEmpty()) return id;
    return KeyOrder(index, IsDescending(index) != forward) + ", "_L1 + id;
}

// Of ASCII letters alone, as what is sought for: other bytes become digits behind a backslash.
QString ContainsRun(const TableDef& table, const QString& field, std::size_t number)
{
    const bool isMemo = table.Fields[FieldNumber(table, field)].Type == dbMemo;
    const QString text =
        isMemo ? u"encode(%1, 'escape')"_s.arg(QuotedName(field)) : u"%1::text"_s.arg(QuotedName(field));
    return u"strpos(lower((%1) COLLATE \"C\"), $%2::text) > 0"_s.arg(text, QString::number(number));
}
} // namespace

QString QuotedName(QString name)
{
    return u'"' + name.replace(u'"', "\"\""_L1) + u'"';
}

PostgresText::PostgresText(const QString& schema, const QString& channel) : m_schema(schema), m_channel(channel) {}

QString PostgresText::Qualified(const QString& table) const
{
    return QuotedName(m_schema) + u'.' + QuotedName(table);
}

std::string PostgresText::Find(const TableDef& table, const Index& index, std::span<const LookUp> lookUps,
                               const QString& runField, int limit) const
{
    const bool bindsKey = std::ranges::any_of(lookUps, [](LookUp lookUp) { return BindsKey(lookUp.rows); });
    const bool bindsId = std::ranges::any_of(lookUps, [](LookUp lookUp) { return BindsId(lookUp.rows); });
    const QString key = QuotedName(KeyField(index));
    const QString keyMark =
        bindsKey ? Mark(1, TypeName(table.Fields[FieldNumber(table, KeyField(index))].Type)) : QString();
    const QString idMark = Mark(bindsKey ? 2 : 1, "integer"_L1);
    const std::size_t runNumber = 1 + (bindsKey ? 1 : 0) + (bindsId ? 1 : 0);
    const QString run = runField.isEmpty() ? QString() : " AND "_L1 + ContainsRun(table, runField, runNumber);
    const bool forward = lookUps.front().forward;
    const QString order = Order(index, forward);
    QStringList parts;
    for (const LookUp lookUp : lookUps) {
        const QString condition = Condition(lookUp.rows, key, keyMark, idMark, forward);
        parts += u"(SELECT %1, %2 FROM %3 WHERE %4%5 ORDER BY %6 LIMIT %7)"_s.arg(
            QString::number(parts.size()), Columns(table), Qualified(table.Name), condition, run, order,
            QString::number(limit));
    }
    const QString text = u"SELECT * FROM (%1) AS found ORDER BY 1, %2 LIMIT %3"_s.arg(parts.join(" UNION ALL "_L1),
                                                                                      order, QString::number(limit));
    return text.toStdString();
}

std::string PostgresText::FindKeys(const TableDef& table, const Index& index) const
{
    const QString text = u"SELECT 0, %1 FROM %2 WHERE %3 = ANY ($1::text[]) ORDER BY %4"_s.arg(
        Columns(table), Qualified(table.Name), QuotedName(KeyField(index)), Order(index, true));
    return text.toStdString();
}

std::string PostgresText::Fetch(const TableDef& table) const
{
    const QString text = u"SELECT %1 FROM %2 WHERE %3 = $1::integer"_s.arg(Columns(table), Qualified(table.Name), Id());
    return text.toStdString();
}

std::string PostgresText::Page(const TableDef& table, int limit) const
{
    const QString text = u"SELECT %1 FROM %2 WHERE %3 > $1::integer ORDER BY %3 LIMIT %4"_s.arg(
        Columns(table), Qualified(table.Name), Id(), QString::number(limit));
    return text.toStdString();
}

std::string PostgresText::Told(std::size_t bound) const
{
    const QString text = u"pg_notify('%1', $%2::text), pg_notify('%1', $%3::text), pg_current_xact_id()::text"_s.arg(
        m_channel, QString::number(bound + 1), QString::number(bound + 2));
    return text.toStdString();
}

std::string PostgresText::Insert(const TableDef& table) const
{
    const QString names = Each(table, ", "_L1, [](const QString& name, auto, auto) { return name; });
    const QString text =
        u"INSERT INTO %1 (%2) VALUES (%3) RETURNING %4, "_s.arg(Qualified(table.Name), names, Marks(table, 1), Id());
    return text.toStdString() + Told(table.Fields.size());
}

std::string PostgresText::InsertRows(const TableDef& table, std::size_t rows) const
{
    const QString names = Each(table, ", "_L1, [](const QString& name, auto, auto) { return name; });
    QStringList values;
    for (std::size_t row = 0; row < rows; ++row)
        values += u'(' + Marks(table, 1 + row * table.Fields.size()) + u')';
    const QString text = u"INSERT INTO %1 (%2) VALUES %3"_s.arg(Qualified(table.Name), names, values.join(", "_L1));
    return text.toStdString();
}

std::string PostgresText::Replace(const TableDef& table) const
{
    const QString assignments = Each(table, ", "_L1, [](const QString& name, std::size_t i, auto type) {
        return name + " = "_L1 + Mark(1 + i, type);
    });
    const std::size_t fields = table.Fields.size();
    const QString text =
        u"UPDATE %1 SET %2 WHERE %3 RETURNING "_s.arg(Qualified(table.Name), assignments, Unchanged(table, fields + 1));
    return text.toStdString() + Told(2 * fields + 1);
}

std::string PostgresText::Erase(const TableDef& table) const
{
    const QString text = u"DELETE FROM %1 WHERE %2 RETURNING "_s.arg(Qualified(table.Name), Unchanged(table, 1));
    return text.toStdString() + Told(table.Fields.size() + 1);
}

std::string PostgresText::CreateTable(const TableDef& table) const
{
    QString text =
        u"CREATE TABLE %1 (%2 integer GENERATED ALWAYS AS IDENTITY PRIMARY KEY"_s.arg(Qualified(table.Name), Id());
    for (const Field& field : table.Fields)
        text += ", "_L1 + QuotedName(field.Name) + u' ' + DeclaredType(field) +
                QLatin1StringView(field.Type == dbText ? " COLLATE \"C\"" : "");
    return QString(text + u')').toStdString();
}

std::string PostgresText::CreateIndex(const TableDef& table, const Index& index) const
{
    const QString text =
        u"CREATE %1INDEX %2 ON %3 (%4)"_s.arg(QLatin1StringView(index.Primary ? "UNIQUE " : ""), QuotedName(index.Name),
                                              Qualified(table.Name), KeyOrder(index, !IsDescending(index)));
    return text.toStdString();
}

QString DeclaredType(const Field& field)
{
    const QString size = field.Type == dbText ? u"(%1)"_s.arg(field.Size) : QString();
    return TypeName(field.Type) + size;
}

std::optional<Field> FieldOf(const QString& name, const QString& declaredType)
{
    static const QRegularExpression sized(u"^character varying\\((\\d+)\\)$"_s);
    const auto text = sized.match(declaredType);
    if (text.hasMatch()) return Field{name, dbText, text.captured(1).toInt()};
    const auto found = std::ranges::find(DeclaredNames, declaredType, &DeclaredName::name);
    return found == DeclaredNames.end() ? std::nullopt : std::optional(Field{name, found->type, 0});
}
