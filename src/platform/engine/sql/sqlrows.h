// What statements are given and what they answer.
#pragma once

#include <QVariant>

#include <vector>

// For the marks of a statement: values that AsFieldValue made, ids (qint64), null; for a server also a list of texts.
using SqlValues = std::vector<QVariant>;

// Texts and memos are bytes, numbers are numbers or their text. A column that is not there counts as null: a server
// can answer anything.
struct SqlRow
{
    std::vector<QVariant> cells;

    const QVariant& operator[](std::size_t column) const;
    QString Text(std::size_t column) const { return QString::fromUtf8((*this)[column].toByteArray()); }
    qint64 Number(std::size_t column) const; // InputOutput for null and for what is none
};
using SqlRows = std::vector<SqlRow>;

// A record as locks name it: by its table's number in the catalogue, and its id.
struct RecordName
{
    qint64 table = 0;
    qint64 record = 0;
    bool operator==(const RecordName&) const = default;
};

[[noreturn]] void RaiseSenselessAnswer(); // InputOutput
