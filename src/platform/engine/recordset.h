// A table or dynaset of an open database: one current record, one pending edit.
//
// Rules, whatever the store:
//  - Opening and SetIndex make the first record current. BOF and EOF are both true only after a positioning that found
//    the table empty. AddNew and Update into an empty table clear both.
//  - A Seek or Find that fails sets NoMatch and leaves no current record: reading a field, Edit and Delete raise
//    NoCurrentRecord. After a Seek MoveNext and MovePrevious go to the neighbours of the key; after a Find, to those of
//    the place that the search started from. Moves leave NoMatch alone.
//  - Order: key, in the index's direction, then order of insertion. Seek lands on the first of equal keys.
//  - MoveNext at EOF, MovePrevious at BOF and any move on a table known to be empty raise NoCurrentRecord. MoveNext
//  from
//    the last record gives EOF, and BOF too if the table turns out to have lost its last record meanwhile.
//  - Edit needs a record (NoCurrentRecord; RecordDeleted if it is gone). LockEdits is always on: Edit takes the
//  record's
//    lock (RecordLocked) and reads the record again. DataChanged, without the lock, if it is not as this recordset last
//    saw it. A second Edit starts the buffer anew.
//  - Any Seek, Move, Find, SetIndex or Close drops a pending edit silently and releases its lock: the next Update can
//    never write one record's text into another.
//  - Update without AddNew or Edit raises NoUpdatePending. It writes only the very record that Edit saw, unchanged
//    (DataChanged). After it the record that was current before AddNew, or the edited one, is current. If it fails,
//    buffer, edit state and lock stay.
//  - Delete takes the lock too. Afterwards there is no current record (RecordDeleted), but the place stays for the next
//    move.
//  - No statement of the store stays open between two calls.
#pragma once

#include "platform/engine/enginerefusals.h"
#include "platform/engine/recordsetstate.h"

// A value that stands for what its copies share: copies are the same object, and a default-made one is no object. The
// State has a `store`, null when it is closed.
template <typename State>
class Handle
{
public:
    Handle() = default; // no object

    bool IsNothing() const { return !m_state; }

protected:
    explicit Handle(std::shared_ptr<State> state) : m_state(std::move(state)) {}

    State& Live() const // ObjectNotSet for no object, Closed for a closed one
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
    Recordset() = default; // no object

    // ItemNotFound if the table has none of this name; "" is the order of insertion
    void SetIndex(const QString& name) { Live().SetIndex(name); }

    bool BOF() const { return Live().bof; }
    bool EOF_() const { return Live().eof; } // the C library has a macro EOF
    bool NoMatch() const { return Live().noMatch; }

    // Comparison is "=" (InvalidArgument); the key is that of the current index (NoIndex).
    void Seek(const QString& comparison, const QVariant& key) { Live().Seek(comparison, key); }
    void MoveFirst() { Live().MoveToEnd(From::First); }
    void MoveLast() { Live().MoveToEnd(From::Last); }
    void MoveNext() { Live().Step(From::After); }
    void MovePrevious() { Live().Step(From::Before); }
    // Criterion of the form: [Field] LIKE "pattern" or [Field] LIKE 'pattern', a pattern as likepattern.h tells; the
    // surrounding quote doubled stands for itself. UnparsableCriterion, and NoMatch true, if it cannot be read.
    void FindLast(const QString& criterion) { Live().Find(From::Last, criterion); }
    void FindPrevious(const QString& criterion) { Live().Find(From::Before, criterion); }

    void AddNew() { Live().AddNew(); }
    void Edit() { Live().Edit(); }
    void Update() { Live().Update(); }
    void CancelUpdate() { Live().CancelUpdate(); }
    void Delete() { Live().Delete(); }
    void Close() { Live().Close(); }

    // While an edit is pending this is the edit's buffer. QString for text, QByteArray (UTF-8) for memo, bool, int,
    // float, QDateTime; a null QVariant where the field was never set. ItemNotFound if there is no such field.
    QVariant Fields(const QString& name) const { return Live().Value(name); }
    // Only between AddNew or Edit and Update (NoUpdatePending). FieldTooSmall if a text is longer than its field.
    void SetField(const QString& name, const QVariant& value) { Live().SetValue(name, value); }

private:
    friend class Database;
    friend class ReadTransaction;
    explicit Recordset(std::shared_ptr<RecordsetState> state) : Handle(std::move(state)) {}
};
