#include "platform/engine/sqlite/sqlitevalues.h"

#include "platform/engine/storedform.h"

#include <QDateTime>

#include <SQLiteCpp/Column.h>

namespace {
QByteArray BytesOf(const SQLite::Column& column)
{
    // The text first: it may convert, and then the size is that of the converted text.
    const char* text = column.getText();
    return QByteArray(text, column.getBytes());
}

QVariant ReadValue(const SQLite::Column& column, FieldType type)
{
    switch (type) {
    case dbBoolean:
        return column.getInt() != 0;
    case dbLong:
        return column.getInt();
    case dbSingle:
        return static_cast<float>(column.getDouble());
    case dbDate:
        return QDateTime::fromString(TextOf(column), storedform::DateFormat);
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

void BindValue(SQLite::Statement& statement, int number, const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return statement.bind(number, value.toBool() ? 1 : 0);
    case QMetaType::Int:
        return statement.bind(number, value.toInt());
    case QMetaType::Float:
        return statement.bind(number, static_cast<double>(value.toFloat()));
    case QMetaType::QDateTime:
        return BindText(statement, number, value.toDateTime().toString(storedform::DateFormat));
    case QMetaType::QString:
        return BindText(statement, number, value.toString());
    case QMetaType::QByteArray:
        return statement.bind(number, value.toByteArray().toStdString());
    default:
        return statement.bind(number);
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
    row.values.resize(table.Fields.size());
    for (std::size_t i = 0; i < row.values.size(); ++i) {
        const int column = static_cast<int>(i) + 1;
        if (!statement.isColumnNull(column))
            row.values[i] = ReadValue(statement.getColumn(column), table.Fields[i].Type);
    }
    return row;
}
