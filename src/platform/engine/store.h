// What a Recordset needs of a store: rows found by index and place, written whole, and locks on single rows. Two
// stores stand behind it, a file and a server. All errors are RunTimeErrors; comments name their numbers as
// engineerrors.h does. What gives back (Unlock, EndRead, Rollback, Close) raises nothing, since it runs in destructors.
#pragma once

#include "platform/engine/tabledef.h"

#include <QVariant>

#include <functional>
#include <optional>
#include <vector>

// Which row of an index is wanted.
enum class From
{
    First,
    Last,
    AtKey,
    After,
    Before
};

// What another user has committed: the table, and the record's key in the table's first index. No key: any record of
// the table. No table: anything, as after a break of the connection.
using ChangeListener = std::function<void(const QString& table, const QVariant& key)>;

class Store
{
public:
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

    virtual ~Store() = default;

    virtual QString Address() const = 0; // of a planner on a server; empty for one in its file
    virtual QStringList TableNames() = 0;
    virtual TableDef Definition(const QString& table) = 0; // NoTable
    virtual void CreateTable(const TableDef& table) = 0;

    // First, Last: the index's ends. AtKey: the first row whose key equals place.key. After, Before: the neighbour of
    // place, which need not exist any more. Empty if there is none. The criterion, if any, must hold too. An index
    // without a field is the order of insertion.
    virtual std::optional<Row> Find(const TableDef& table, const Index& index, From from, const Place& place,
                                    const QString& likeField, const QString& likePattern) = 0;
    virtual std::optional<Row> Fetch(const TableDef& table, qint64 id) = 0;

    // For going through a whole table: the next rows in order of insertion, none at its end. All stores give pages of
    // one size, so that two can be compared page by page.
    virtual std::vector<Row> Page(const TableDef& table, qint64 afterId) = 0;

    virtual qint64 Insert(const TableDef& table, const std::vector<QVariant>& values) = 0; // DuplicateKey
    virtual void InsertAll(const TableDef& table, const std::vector<Row>& rows) // within a write; under new ids
    {
        for (const Row& row : rows)
            Insert(table, row.values);
    }
    // Both only if the row still is as old says; else DataChanged.
    virtual void Replace(const TableDef& table, const Row& old, const std::vector<QVariant>& values) = 0;
    virtual void Erase(const TableDef& table, const Row& old) = 0;

    // RecordLocked, whose text names the holder. Not stacked: one TryLock an edit. Where locks can be lost with a
    // connection, Replace and Erase of a record whose lock is no longer held raise BrokenConnection.
    virtual void TryLock(const TableDef& table, qint64 id) = 0;
    virtual bool Holds(const TableDef& table, qint64 id) const = 0;
    virtual void Unlock(const TableDef& table, qint64 id) = 0;

    // A write inside a read ends it: the write is durable when its call returns, and later look-ups stand alone.
    virtual void BeginRead() = 0;
    // Inside a read: Finds of these keys are about to come. A store far away fetches them in one journey; until the
    // read ends they are answered from that. Raises nothing: what could not be fetched is looked up when its Find
    // comes.
    virtual void Expect(const TableDef& table, const Index& index, const QVariantList& keys) = 0;
    virtual void EndRead() = 0;
    virtual void BeginWrite() = 0;
    virtual void Commit() = 0; // after an error nothing is open any more and nothing has been written
    virtual void Rollback() = 0;

    virtual void BackUp(const QString& path) = 0; // Database::BackUp
    virtual void Refresh() = 0;                   // what Idle asks for
    // The store calls it from the event loop, never inside a call of the store, and not for its own commits. A store
    // that does not hear of others' commits never calls it. Null takes it away.
    virtual void OnChange(ChangeListener listener) = 0;
    virtual void Close() = 0;
};
