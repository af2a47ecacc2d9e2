// What a Recordset needs of a store: finding rows by index and place, writing whole rows, and locking single rows.
// There are two stores, one for files and one for servers. All errors are RunTimeErrors, named as in engineerrors.h.
// Unlock, EndRead, Rollback and Close raise nothing, since destructors call them.
#pragma once

#include "platform/engine/tabledef.h"

#include <QDateTime>
#include <QVariant>

#include <functional>
#include <optional>
#include <vector>

// Which row of an index Find returns.
enum class From
{
    First,
    Last,
    AtKey,
    After,
    Before
};

// Another user's commit: the table, and the record's key in the table's first index. A null key means any record of the
// table, an empty table anything, for example after a break of the connection.
using ChangeListener = std::function<void(const QString& table, const QVariant& key)>;

// Where a history finds the texts to keep: a table, the field that names a record, and the field of its text.
struct KeptTexts
{
    QString table, key, text;
};

// A former text of a record.
struct PastText
{
    QDateTime replaced; // local time
    QString by;         // who replaced or deleted it, as sessionname::Person
    QByteArray text;
};

class Store
{
public:
    // A row as read. A table never uses an id twice, even after its row is gone.
    struct Row
    {
        qint64 id = 0;
        std::vector<QVariant> values; // in the order of the table's fields
    };

    // A place in an index: the key and, among equal keys, the id.
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

    // First, Last: the index's ends. AtKey: the first row with place.key. After, Before: the neighbour of place, which
    // may no longer exist. The row must also match the pattern, if any. Empty if there is none. An index without a
    // field orders by insertion.
    virtual std::optional<Row> Find(const TableDef& table, const Index& index, From from, const Place& place,
                                    const QString& likeField, const QString& likePattern) = 0;
    virtual std::optional<Row> Fetch(const TableDef& table, qint64 id) = 0;

    // Walks a whole table: the next rows in order of insertion, so many, fewer only at the end.
    virtual std::vector<Row> Page(const TableDef& table, qint64 afterId, int rows) = 0;

    virtual qint64 Insert(const TableDef& table, const std::vector<QVariant>& values) = 0; // DuplicateKey
    virtual void InsertAll(const TableDef& table, const std::vector<Row>& rows) // within a write; assigns new ids
    {
        for (const Row& row : rows)
            Insert(table, row.values);
    }
    // Both raise DataChanged if the row no longer equals old.
    virtual void Replace(const TableDef& table, const Row& old, const std::vector<QVariant>& values) = 0;
    virtual void Erase(const TableDef& table, const Row& old) = 0;

    // RecordLocked; the text names the holder. Locks are not nested: one TryLock an edit. If the connection has lost a
    // record's lock, Replace and Erase of the record raise BrokenConnection.
    virtual void TryLock(const TableDef& table, qint64 id) = 0;
    virtual bool Holds(const TableDef& table, qint64 id) const = 0;
    virtual void Unlock(const TableDef& table, qint64 id) = 0;

    // A write inside a read ends the read: the write is durable when its call returns, and later look-ups stand alone.
    virtual void BeginRead() = 0;
    // Inside a read: announces Finds of these keys. A store on a server fetches them in one round trip and answers from
    // that until the read ends. Raises nothing: a key that could not be fetched is looked up by its Find.
    virtual void Expect(const TableDef& table, const Index& index, const QVariantList& keys) = 0;
    virtual void EndRead() = 0;
    virtual void BeginWrite() = 0;
    virtual void Commit() = 0; // after an error no transaction is open and nothing is written
    virtual void Rollback() = 0;

    // Database::KeepHistory and PastTexts.
    virtual void KeepHistory(const KeptTexts&) {}
    virtual std::optional<std::vector<PastText>> PastTexts(const QString&) { return {}; }

    virtual qint64 Revision() = 0;                // Database::Revision
    virtual void BackUp(const QString& path) = 0; // Database::BackUp
    virtual void Refresh() = 0;                   // for Idle
    // The store calls the listener from the event loop, never inside a call of the store, and not for its own commits.
    // A file's store never calls it. Null removes it.
    virtual void OnChange(ChangeListener listener) = 0;
    virtual void Close() = 0;
};
