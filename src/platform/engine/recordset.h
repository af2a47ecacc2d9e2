// A table or dynaset of an open database: one current record, one pending edit.
//
// Rules, whatever the store:
//  - Opening and SetIndex make the first record current. BOF and EOF are both true only after a positioning that found
//    the table empty. AddNew and Update into an empty table clear both.
//  - A Seek or Find that fails sets NoMatch and leaves no current record: reading a field, Edit and Delete raise
//    NoCurrentRecord. After a Seek, MoveNext and MovePrevious go to the neighbours of the key; after a Find, to those
//    of the place where the search started. Moves do not change NoMatch.
//  - Order: by key, in the index's direction, then by insertion. Seek finds the first of equal keys.
//  - MoveNext at EOF, MovePrevious at BOF and any move on a table known to be empty raise NoCurrentRecord. MoveNext
//    from the last record sets EOF, and BOF too if the table has meanwhile become empty.
//  - Edit needs a record (NoCurrentRecord; RecordDeleted if it is gone). LockEdits is always on: Edit takes the lock of
//    the record (RecordLocked) and reads it again. If another user has changed the record since this recordset read it,
//    Edit raises DataChanged and releases the lock. A second Edit resets the buffer.
//  - Seek, Move, Find, SetIndex and Close drop a pending edit silently and release its lock, so that the next Update
//    cannot write one record's text into another.
//  - Update without AddNew or Edit raises NoUpdatePending. It writes only the record that Edit read, if unchanged
//    (DataChanged). Then the record current before AddNew, or the edited one, is current. If it fails, buffer, edit
//    state and lock stay.
//  - Delete takes the lock too. Then there is no current record (RecordDeleted), but the place stays for the next move.
//  - No statement of the store stays open between two calls.
#pragma once

#include "platform/engine/enginerefusals.h"
#include "platform/engine/recordsetstate.h"

// A handle to a shared state. Copies are the same object; a default-made one has no object. State has a `store`, null
// when closed.
template <typename State>
class Handle
{
public:
    Handle() = default;

    bool IsNothing() const { return !m_state; }

protected:
    explicit Handle(std::shared_ptr<State> state) : m_state(std::move(state)) {}

    State& Live() const // ObjectNotSet without an object, Closed if closed
    {
        if (!m_state) throw engineerrors::ErrorOf(engineerrors::NoObject);
        if (!m_state->store) throw engineerrors::ErrorOf(engineerrors::ObjectClosed);
        return *m_state;
    }

    std::shared_ptr<State> m_state;
};

class Recordset : public Handle<RecordsetState>
{
public:
    Recordset() = default;

    // ItemNotFound if the table has no such index; "" orders by insertion
    void SetIndex(const QString& name) { Live().SetIndex(name); }

    bool BOF() const { return Live().bof; }
    bool EOF_() const { return Live().eof; } // the C library defines EOF as a macro
    bool NoMatch() const { return Live().noMatch; }

    // Comparison must be "=" (InvalidArgument). The key is one of the current index (NoIndex).
    void Seek(const QString& comparison, const QVariant& key) { Live().Seek(comparison, key); }
    void MoveFirst() { Live().MoveToEnd(From::First); }
    void MoveLast() { Live().MoveToEnd(From::Last); }
    void MoveNext() { Live().Step(From::After); }
    void MovePrevious() { Live().Step(From::Before); }
    // Criterion: [Field] LIKE "pattern" or [Field] LIKE 'pattern'; likepattern.h describes patterns. A doubled quote
    // stands for one. If it cannot be parsed, UnparsableCriterion, and NoMatch is true.
    void FindLast(const QString& criterion) { Live().Find(From::Last, criterion); }
    void FindPrevious(const QString& criterion) { Live().Find(From::Before, criterion); }

    void AddNew() { Live().AddNew(); }
    void Edit() { Live().Edit(); }
    void Update() { Live().Update(); }
    void CancelUpdate() { Live().CancelUpdate(); }
    void Delete() { Live().Delete(); }
    void Close() { Live().Close(); }

    // The field of the pending edit's buffer, else of the current record. QString for text, QByteArray (UTF-8) for
    // memo, bool, int, float, QDateTime; a null QVariant if never set. ItemNotFound.
    QVariant Fields(const QString& name) const { return Live().Value(name); }
    // Only between AddNew or Edit and Update (NoUpdatePending). FieldTooSmall if a text is longer than its field.
    void SetField(const QString& name, const QVariant& value) { Live().SetValue(name, value); }

private:
    friend class Database;
    friend class ReadTransaction;
    explicit Recordset(std::shared_ptr<RecordsetState> state) : Handle(std::move(state)) {}
};
