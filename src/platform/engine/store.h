// What a Recordset needs of a store: rows found by index and place, written whole, and locks on single rows. Two
// stores stand behind it, a file and a server. All errors are RunTimeErrors with the numbers of engineerrors.h. What
// gives back (Unlock, EndRead, Rollback, Close) raises nothing, since it runs in destructors.
#pragma once

#include "platform/engine/tabledef.h"

#include <QVariant>

#include <optional>
#include <vector>

// A row as it was read: id is never used twice in a table, even after its row is gone.
struct Row
{
    qint64 id = 0;
    std::vector<QVariant> values; // in the order of the table's fields
};

// A place in an index: the key and, among equal keys, the id of insertion order.
struct Place
{
    QVariant key;
    qint64 id = 0;
};

// Which row of an index is wanted.
enum class From
{
    First,
    Last,
    AtKey,
    After,
    Before
};

class Store
{
public:
    virtual ~Store() = default;

    virtual QStringList TableNames() = 0;
    virtual TableDef Definition(const QString& table) = 0; // 3011
    virtual void CreateTable(const TableDef& table) = 0;

    // First, Last: the index's ends. AtKey: the first row whose key equals place.key. After, Before: the neighbour of
    // place, which need not exist any more. Empty if there is none. The criterion, if any, must hold too. An index
    // without a field is the order of insertion.
    virtual std::optional<Row> Find(const TableDef& table, const Index& index, From from, const Place& place,
                                    const QString& likeField, const QString& likePattern) = 0;
    virtual std::optional<Row> Fetch(const TableDef& table, qint64 id) = 0;

    virtual qint64 Insert(const TableDef& table, const std::vector<QVariant>& values) = 0; // 3022
    // Both only if the row still is as old says; else 3197.
    virtual void Replace(const TableDef& table, const Row& old, const std::vector<QVariant>& values) = 0;
    virtual void Erase(const TableDef& table, const Row& old) = 0;

    // 3260, whose text names the holder. Not stacked: one TryLock an edit.
    virtual void TryLock(const TableDef& table, qint64 id) = 0;
    virtual void Unlock(const TableDef& table, qint64 id) = 0;

    // A write inside a read ends it: the write is durable when its call returns, and later look-ups stand alone.
    virtual void BeginRead() = 0;
    virtual void EndRead() = 0;
    virtual void BeginWrite() = 0;
    virtual void Commit() = 0; // after an error nothing is open any more and nothing has been written
    virtual void Rollback() = 0;

    virtual void Refresh() = 0; // what Idle asks for
    virtual void Close() = 0;
};
