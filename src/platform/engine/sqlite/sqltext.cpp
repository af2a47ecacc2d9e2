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
    DeclaredName{dbBoolean, QLatin1StringView("BOOLEAN")}, DeclaredName{dbLong, QLatin1StringView("INTEGER")},
    DeclaredName{dbSingle, QLatin1StringView("REAL")},     DeclaredName{dbDate, QLatin1StringView("DATE TEXT")},
    DeclaredName{dbText, QLatin1StringView("TEXT")},       DeclaredName{dbMemo, QLatin1StringView("MEMO TEXT")},
};

QString Quoted(QString name)
{
    return u'"' + name.replace(u'"', QLatin1StringView("\"\"")) + u'"';
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
    return Id() + QLatin1StringView(", ") + Each(table, QLatin1StringView("%"), QLatin1StringView(", "));
}

// IS, since a null equals itself here.
QString Unchanged(const TableDef& table)
{
    return Id() + QLatin1StringView(" = ? AND ") + Each(table, QLatin1StringView("% IS ?"), QLatin1StringView(" AND "));
}

QString Condition(Rows rows, const QString& key, bool forward)
{
    const QString beyond = Id() + QLatin1StringView(forward ? " > ?" : " < ?");
    switch (rows) {
    case Rows::All:
        return QStringLiteral("1");
    case Rows::OfKey:
        return key + QLatin1StringView(" = ?");
    case Rows::OfKeyPast:
        return key + QLatin1StringView(" = ? AND ") + beyond;
    case Rows::WithoutKeyPast:
        return key + QLatin1StringView(" IS NULL AND ") + beyond;
    case Rows::PastId:
        return beyond;
    case Rows::Greater:
        return key + QLatin1StringView(" > ?");
    case Rows::Less:
        return key + QLatin1StringView(" < ?");
    case Rows::WithoutKey:
        return key + QLatin1StringView(" IS NULL");
    case Rows::WithKey:
        return key + QLatin1StringView(" IS NOT NULL");
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
    const QString like = likeField.isEmpty() ? QString() : QStringLiteral(" AND matches(%1)").arg(Quoted(likeField));
    const QString condition = Condition(lookUp.rows, Quoted(KeyField(index)), lookUp.forward) + like;
    const QString text = QLatin1StringView("SELECT ") + Columns(table) + QLatin1StringView(" FROM ") +
                         Quoted(table.Name) + QLatin1StringView(" WHERE ") + condition +
                         QLatin1StringView(" ORDER BY ") + Order(index, lookUp.forward) + QLatin1StringView(" LIMIT 1");
    return text.toStdString();
}

std::string Fetch(const TableDef& table)
{
    const QString text = QLatin1StringView("SELECT ") + Columns(table) + QLatin1StringView(" FROM ") +
                         Quoted(table.Name) + QLatin1StringView(" WHERE ") + Id() + QLatin1StringView(" = ?");
    return text.toStdString();
}

std::string Insert(const TableDef& table)
{
    const QString names = Each(table, QLatin1StringView("%"), QLatin1StringView(", "));
    const QString marks = Each(table, QLatin1StringView("?"), QLatin1StringView(", "));
    const QString text = QLatin1StringView("INSERT INTO ") + Quoted(table.Name) + QLatin1StringView(" (") + names +
                         QLatin1StringView(") VALUES (") + marks + u')';
    return text.toStdString();
}

std::string Restore(const TableDef& table)
{
    const QString text = QLatin1StringView("INSERT OR IGNORE INTO ") + Quoted(table.Name) + QLatin1StringView(" (") +
                         Columns(table) + QLatin1StringView(") VALUES (?, ") +
                         Each(table, QLatin1StringView("?"), QLatin1StringView(", ")) + u')';
    return text.toStdString();
}

std::string Replace(const TableDef& table)
{
    const QString text = QLatin1StringView("UPDATE ") + Quoted(table.Name) + QLatin1StringView(" SET ") +
                         Each(table, QLatin1StringView("% = ?"), QLatin1StringView(", ")) +
                         QLatin1StringView(" WHERE ") + Unchanged(table);
    return text.toStdString();
}

std::string Erase(const TableDef& table)
{
    const QString text =
        QLatin1StringView("DELETE FROM ") + Quoted(table.Name) + QLatin1StringView(" WHERE ") + Unchanged(table);
    return text.toStdString();
}

std::string CreateTable(const TableDef& table)
{
    QString text = QLatin1StringView("CREATE TABLE ") + Quoted(table.Name) + QLatin1StringView(" (") + Id() +
                   QLatin1StringView(" INTEGER PRIMARY KEY AUTOINCREMENT");
    for (const Field& field : table.Fields)
        text += QLatin1StringView(", ") + Quoted(field.Name) + u' ' + DeclaredType(field);
    return QString(text + u')').toStdString();
}

std::string CreateIndex(const TableDef& table, const Index& index)
{
    const QString text = QLatin1StringView(index.Primary ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") +
                         Quoted(index.Name) + QLatin1StringView(" ON ") + Quoted(table.Name) + QLatin1StringView(" (") +
                         Quoted(KeyField(index)) + QLatin1StringView(IsDescending(index) ? " DESC)" : " ASC)");
    return text.toStdString();
}

QString DeclaredType(const Field& field)
{
    const auto found = std::ranges::find(DeclaredNames, field.Type, &DeclaredName::type);
    const QString size = field.Type == dbText ? QStringLiteral("(%1)").arg(field.Size) : QString();
    return found->name + size;
}

Field FieldOf(const QString& name, const QString& declaredType)
{
    static const QRegularExpression sized(QStringLiteral("^TEXT\\((\\d+)\\)$"));
    const auto text = sized.match(declaredType);
    if (text.hasMatch()) return {name, dbText, text.captured(1).toInt()};
    const auto found = std::ranges::find(DeclaredNames, declaredType, &DeclaredName::name);
    return {name, found == DeclaredNames.end() ? dbMemo : found->type, 0};
}
} // namespace sqltext
