// The state machine of a Recordset; recordset.h states its rules.
#pragma once

#include "platform/engine/likepattern.h"
#include "platform/engine/store.h"

struct RecordsetState
{
    // Makes the first record current.
    RecordsetState(std::shared_ptr<Store> openStore, TableDef definition, const Index& order);
    ~RecordsetState(); // releases the edit's lock
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
    Index index; // only SetIndex changes it
    bool bof = false;
    bool eof = false;
    bool noMatch = false;

private:
    enum class At
    {
        Nowhere, // a move has nowhere to start
        Record,
        Deleted, // the place of a deleted record
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
    void Use(const Index& order); // and makes its first record current
    const Row& Current() const;   // NoCurrentRecord, RecordDeleted
    void Lock();
    void ReleaseLock();
    void DropEdit();

    std::optional<std::size_t> m_keyField; // the index's field
    At m_at = At::Nowhere;
    Store::Place m_place;
    Row m_row;
    Pending m_pending = Pending::None;
    std::vector<QVariant> m_buffer;
    bool m_locked = false;
};
