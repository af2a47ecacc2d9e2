// Definitions of tables: fields in order, and indexes. Plain values; Database::Append makes the table.
#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

#include <algorithm>
#include <vector>

enum FieldType
{
    dbBoolean = 1,
    dbLong = 4,
    dbSingle = 6,
    dbDate = 8,
    dbText = 10,
    dbMemo = 12
};

struct Field
{
    QString Name;
    FieldType Type;
    int Size = 0; // in characters, for a dbText; else 0
};

struct Index
{
    QString Name;
    QString Fields;       // one field; "-" before it means descending: "-qmtDate"
    bool Primary = false; // a primary index is unique
};

struct TableDef
{
    QString Name;
    std::vector<Field> Fields;
    std::vector<Index> Indexes;
};

// Ignores case, but prefers the exact name.
template <typename List, typename Name>
auto FindNamed(const List& list, Name nameOf, const QString& name)
{
    const auto exact = std::ranges::find(list, name, nameOf);
    const auto isAlike = [&](const QString& other) { return other.compare(name, Qt::CaseInsensitive) == 0; };
    return exact == list.end() ? std::ranges::find_if(list, isAlike, nameOf) : exact;
}

std::size_t FieldNumber(const TableDef& table, const QString& name); // ItemNotFound
const Index& IndexNamed(const TableDef& table, const QString& name); // ItemNotFound
Index PrimaryIndex(const TableDef& table);                           // an empty one if the table has none

QString KeyField(const Index& index); // without the "-"
bool IsDescending(const Index& index);

QMetaType TypeOf(FieldType type); // the type of the field's values

// The value as rows hold it: of the field's type, and unchanged by writing it to the file and reading it. TypeMismatch
// if it cannot be converted.
QVariant AsFieldValue(const Field& field, const QVariant& value);
