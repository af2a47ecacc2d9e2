// Definitions of tables: fields in their order and indexes. Plain values; Database::Append makes the table.
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
    int Size = 0; // characters of a dbText; 0 for the other types
};

struct Index
{
    QString Name;
    QString Fields;       // one field, "-" before it for descending: "-qmtDate"
    bool Primary = false; // a primary index is unique
};

struct TableDef
{
    QString Name;
    std::vector<Field> Fields;
    std::vector<Index> Indexes;
};

// Names are found without regard to case; the very name comes first.
template <typename List, typename Name>
auto FindNamed(const List& list, Name nameOf, const QString& name)
{
    const auto exact = std::ranges::find(list, name, nameOf);
    const auto isAlike = [&](const QString& other) { return other.compare(name, Qt::CaseInsensitive) == 0; };
    return exact == list.end() ? std::ranges::find_if(list, isAlike, nameOf) : exact;
}

std::size_t FieldNumber(const TableDef& table, const QString& name); // ItemNotFound
const Index& IndexNamed(const TableDef& table, const QString& name); // ItemNotFound
Index PrimaryIndex(const TableDef& table);                           // an empty one if there is none

QString KeyField(const Index& index); // without the sign of its direction
bool IsDescending(const Index& index);

QMetaType TypeOf(FieldType type); // of the values of such a field

// The value as rows hold it: of the field's own type and equal to itself after a journey to the file and back.
// TypeMismatch if it cannot be made one.
QVariant AsFieldValue(const Field& field, const QVariant& value);
