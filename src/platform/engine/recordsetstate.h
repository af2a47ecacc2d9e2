// The state machine behind a Recordset; its rules stand in recordset.h.
#pragma once

#include "platform/engine/likepattern.h"
#include "platform/engine/store.h"

struct RecordsetState
{
    // Stands on the first record.
    RecordsetState(std::shared_ptr<Store> openStore, TableDef definition, const Index& order);
    ~RecordsetState(); // an edit's lock ends with its recordset
    RecordsetState(const RecordsetState&) = delete;
    RecordsetState& operator=(const RecordsetState&) = delete;

    void SetIndex(const QString& name);
    void Seek(const QString& comparison, const QVariant& key);
    void MoveToEnd(From end);                            // First or Last
    void Step(From direction);                           // After or Before
    void Find(From direction, const QString& criterion); // Last or Before

    void AddNew();
    void Edit();
    void Update();
    void CancelUpdate();
    void Delete();
    void Close();

    const QVariant& Value(const QString& name) const;
    void SetValue(const QString& name, const QVariant& value);

    std::shared_ptr<Store> store; // null when closed
    TableDef table;
    Index index; // changed by SetIndex alone
    bool bof = false;
    bool eof = false;
    bool noMatch = false;

private:
    enum class At
    {
        Nowhere, // no place to move from
        Record,
        Deleted, // the place of a record that is gone
        Gap,     // a place without a record
        Bof,
        Eof
    };
    enum class Pending
    {
        None,
        Add,
        Change
    };
    using Row = Store::Row;

    std::optional<Row> Look(From from, const Criterion& criterion = {}) const;
    std::optional<Row> LookPrevious(const Criterion& criterion) const;
    bool Land(std::optional<Row> found);
    void StandAtEnd(From end);
    void Use(const Index& order); // and stand on its first record
    const Row& Current() const;   // NoCurrentRecord, RecordDeleted
    void Lock();
    void ReleaseLock();
    void DropEdit();

    std::optional<std::size_t> m_keyField; // the field that the index orders by
    At m_at = At::Nowhere;
    Store::Place m_place;
    Row m_row;
    Pending m_pending = Pending::None;
    std::vector<QVariant> m_buffer;
    bool m_locked = false;
};
