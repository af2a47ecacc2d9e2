#include "platform/engine/sqlite/sqltext.h"

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

// Each name has the affinity that keeps values as they are: a memo that reads as a number must stay a text, so the
// word TEXT stands in its type.
constexpr std::array DeclaredNames = {
    DeclaredName{dbBoolean, "BOOLEAN"_L1}, DeclaredName{dbLong, "INTEGER"_L1}, DeclaredName{dbSingle, "REAL"_L1},
    DeclaredName{dbDate, "DATE TEXT"_L1},  DeclaredName{dbText, "TEXT"_L1},    DeclaredName{dbMemo, "MEMO TEXT"_L1},
};

QString Quoted(QString name)
{
    return u'"' + name.replace(u'"', "\"\""_L1) + u'"';
}

const QString& Id()
{
    static const QString quoted = Quoted(storedform::IdColumn);
    return quoted;
}

// The fields' names, each put into the form, separated as told.
QString Each(const TableDef& table, QLatin1StringView form, QLatin1StringView separator)
{
    QStringList parts;
    for (const Field& field : table.Fields)
        parts += QString(form).replace(u'%', Quoted(field.Name));
    return parts.join(separator);
}

QString Columns(const TableDef& table)
{
    return Id() + ", "_L1 + Each(table, "%"_L1, ", "_L1);
}

// IS, since a null equals itself here.
QString Unchanged(const TableDef& table)
{
    return Id() + " = ? AND "_L1 + Each(table, "% IS ?"_L1, " AND "_L1);
}

QString Condition(Rows rows, const QString& key, bool forward)
{
    const QString beyond = Id() + QLatin1StringView(forward ? " > ?" : " < ?");
    switch (rows) {
    case Rows::All:
        return u"1"_s;
    case Rows::OfKey:
        return key + " = ?"_L1;
    case Rows::OfKeyPast:
        return key + " = ? AND "_L1 + beyond;
    case Rows::WithoutKeyPast:
        return key + " IS NULL AND "_L1 + beyond;
    case Rows::PastId:
        return beyond;
    case Rows::Greater:
        return key + " > ?"_L1;
    case Rows::Less:
        return key + " < ?"_L1;
    case Rows::WithoutKey:
        return key + " IS NULL"_L1;
    case Rows::WithKey:
        return key + " IS NOT NULL"_L1;
    }
    return {};
}

QString Order(const Index& index, bool forward)
{
    const QString id = Id() + QLatin1StringView(forward ? " ASC" : " DESC");
    if (index.Fields.isEmpty()) return id;
    const bool ascending = IsDescending(index) != forward;
    return Quoted(KeyField(index)) + QLatin1StringView(ascending ? " ASC, " : " DESC, ") + id;
}
} // namespace

namespace sqltext {
std::string Find(const TableDef& table, const Index& index, LookUp lookUp, const QString& likeField)
{
    const QString like = likeField.isEmpty() ? QString() : u" AND matches(%1)"_s.arg(Quoted(likeField));
    const QString condition = Condition(lookUp.rows, Quoted(KeyField(index)), lookUp.forward) + like;
    const QString text = "SELECT "_L1 + Columns(table) + " FROM "_L1 + Quoted(table.Name) + " WHERE "_L1 + condition +
                         " ORDER BY "_L1 + Order(index, lookUp.forward) + " LIMIT 1"_L1;
    return text.toStdString();
}

std::string Fetch(const TableDef& table)
{
    const QString text =
        "SELECT "_L1 + Columns(table) + " FROM "_L1 + Quoted(table.Name) + " WHERE "_L1 + Id() + " = ?"_L1;
    return text.toStdString();
}

std::string Insert(const TableDef& table)
{
    const QString names = Each(table, "%"_L1, ", "_L1);
    const QString marks = Each(table, "?"_L1, ", "_L1);
    const QString text = "INSERT INTO "_L1 + Quoted(table.Name) + " ("_L1 + names + ") VALUES ("_L1 + marks + u')';
    return text.toStdString();
}

std::string Restore(const TableDef& table)
{
    const QString text = "INSERT OR IGNORE INTO "_L1 + Quoted(table.Name) + " ("_L1 + Columns(table) +
                         ") VALUES (?, "_L1 + Each(table, "?"_L1, ", "_L1) + u')';
    return text.toStdString();
}

std::string Replace(const TableDef& table)
{
    const QString text = "UPDATE "_L1 + Quoted(table.Name) + " SET "_L1 + Each(table, "% = ?"_L1, ", "_L1) +
                         " WHERE "_L1 + Unchanged(table);
    return text.toStdString();
}

std::string Erase(const TableDef& table)
{
    const QString text = "DELETE FROM "_L1 + Quoted(table.Name) + " WHERE "_L1 + Unchanged(table);
    return text.toStdString();
}

std::string CreateTable(const TableDef& table)
{
    QString text = "CREATE TABLE "_L1 + Quoted(table.Name) + " ("_L1 + Id() + " INTEGER PRIMARY KEY AUTOINCREMENT"_L1;
    for (const Field& field : table.Fields)
        text += ", "_L1 + Quoted(field.Name) + u' ' + DeclaredType(field);
    return QString(text + u')').toStdString();
}

std::string CreateIndex(const TableDef& table, const Index& index)
{
    const QString text = QLatin1StringView(index.Primary ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") +
                         Quoted(index.Name) + " ON "_L1 + Quoted(table.Name) + " ("_L1 + Quoted(KeyField(index)) +
                         QLatin1StringView(IsDescending(index) ? " DESC)" : " ASC)");
    return text.toStdString();
}

QString DeclaredType(const Field& field)
{
    const auto found = std::ranges::find(DeclaredNames, field.Type, &DeclaredName::type);
    const QString size = field.Type == dbText ? u"(%1)"_s.arg(field.Size) : QString();
    return found->name + size;
}

Field FieldOf(const QString& name, const QString& declaredType)
{
    static const QRegularExpression sized(u"^TEXT\\((\\d+)\\)$"_s);
    const auto text = sized.match(declaredType);
    if (text.hasMatch()) return {name, dbText, text.captured(1).toInt()};
    const auto found = std::ranges::find(DeclaredNames, declaredType, &DeclaredName::name);
    return {name, found == DeclaredNames.end() ? dbMemo : found->type, 0};
}
} // namespace sqltext
