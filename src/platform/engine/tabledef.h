// Definitions of tables: fields in their order and indexes. Plain values; Database::Append makes the table.
#pragma once

#include <QString>
#include <QStringList>

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
