// The values that go to statements and the rows that they return.
#pragma once

#include <QVariant>

#include <vector>

// The values for a statement's marks: results of AsFieldValue, ids (qint64), null; on a server also a list of texts.
using SqlValues = std::vector<QVariant>;

// Texts and memos are bytes; numbers are numbers or their text. A missing column reads as null: a server can return
// anything.
struct SqlRow
{
    std::vector<QVariant> cells;

    const QVariant& operator[](std::size_t column) const;
    QString Text(std::size_t column) const { return QString::fromUtf8((*this)[column].toByteArray()); }
    qint64 Number(std::size_t column) const; // InputOutput for null or no number
};
using SqlRows = std::vector<SqlRow>;

// A record's name for locks: its table's number in the catalogue, and its id.
struct RecordName
{
    qint64 table = 0;
    qint64 record = 0;
    bool operator==(const RecordName&) const = default;
};

[[noreturn]] void RaiseSenselessAnswer(); // InputOutput
