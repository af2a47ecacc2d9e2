#include "platform/engine/sqlite/sqlitevalues.h"

#include <QDateTime>

#include <SQLiteCpp/Column.h>

namespace {
// What a clock on the wall shows: no zone.
const QString dateFormat = QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz");

QByteArray BytesOf(const SQLite::Column& column)
{
    // The text first: it may convert, and then the size is that of the converted text.
    const char* text = column.getText();
    return QByteArray(text, column.getBytes());
}

QVariant ReadValue(const SQLite::Column& column, FieldType type)
{
    if (column.isNull()) return {};
    switch (type) {
    case dbBoolean:
        return column.getInt() != 0;
    case dbLong:
        return column.getInt();
    case dbSingle:
        return static_cast<float>(column.getDouble());
    case dbDate:
        return QDateTime::fromString(TextOf(column), dateFormat);
    case dbText:
        return TextOf(column);
    case dbMemo:
        return BytesOf(column);
    }
    return {};
}
} // namespace

void BindText(SQLite::Statement& statement, int number, const QString& text)
{
    statement.bind(number, text.toStdString());
}

void BindValue(SQLite::Statement& statement, int number, const Field& field, const QVariant& value)
{
    if (value.isNull()) return statement.bind(number);
    switch (field.Type) {
    case dbBoolean:
        return statement.bind(number, value.toBool() ? 1 : 0);
    case dbLong:
        return statement.bind(number, value.toInt());
    case dbSingle:
        return statement.bind(number, static_cast<double>(value.toFloat()));
    case dbDate:
        return BindText(statement, number, value.toDateTime().toString(dateFormat));
    case dbText:
        return BindText(statement, number, value.toString());
    case dbMemo:
        return statement.bind(number, value.toByteArray().toStdString());
    }
}

QString TextOf(const SQLite::Column& column)
{
    const char* text = column.getText();
    return QString::fromUtf8(text, column.getBytes());
}

Row ReadRow(const SQLite::Statement& statement, const TableDef& table)
{
    Row row;
    row.id = statement.getColumn(0).getInt64();
    row.values.reserve(table.Fields.size());
    for (int i = 0; i < static_cast<int>(table.Fields.size()); ++i)
        row.values.push_back(ReadValue(statement.getColumn(i + 1), table.Fields[static_cast<std::size_t>(i)].Type));
    return row;
}
