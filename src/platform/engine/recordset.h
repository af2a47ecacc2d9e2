// A table or dynaset of an open database: one current record, one pending edit.
//
// Rules, whatever the store:
//  - Opening, and SetIndex: the first record is current; BOF and EOF are both true if the table is empty, and both are
//    true only after a positioning that found it empty. AddNew and Update into an empty table clears both.
//  - A Seek or Find that fails: NoMatch true, no current record (reading a field, Edit and Delete raise 3021). After a
//    Seek the gap at the key stays, so MoveNext and MovePrevious go to its neighbours; after a Find the place that the
//    search started from. Moves leave NoMatch alone.
//  - Order: key, in the index's direction, then order of insertion. Seek lands on the first of equal keys.
//  - MoveNext at EOF, MovePrevious at BOF, any move on a table known to be empty: 3021. MoveNext from the last record
//    gives EOF, and BOF too if the table turns out to have lost its last record meanwhile.
//  - Edit needs a record (3021; 3167 if it is gone), takes its lock while LockEdits is true (3260), reads it again and
//    raises 3197, without the lock, if it is not as this recordset last saw it. A second Edit starts the buffer anew.
//    While LockEdits is false, Update takes the lock for its own moment: nobody writes under another's lock.
//  - Any Seek, Move, Find, SetIndex or Close drops a pending edit silently and releases its lock: the next Update can
//    never write one record's text into another.
//  - Update without AddNew or Edit: 3020. Guarded by the record's identity and old content (3197). After it the record
//    that was current before AddNew, or the edited one, is current. If it fails, buffer, edit state and lock stay.
//  - Delete takes the lock too; afterwards there is no current record (3167), but the place stays for the next move.
//  - No statement of the store stays open between two calls.
#pragma once

#include "platform/engine/handle.h"
#include "platform/engine/recordsetstate.h"

class Recordset : public Handle<RecordsetState>
{
public:
    Recordset() = default; // no object

    QString Index() const { return Live().index.Name; }
    // 3265 if the table has none of this name; "" is the order of insertion
    void SetIndex(const QString& name) { Live().SetIndex(name); }
    bool LockEdits() const { return Live().lockEdits; }
    void SetLockEdits(bool lock) { Live().lockEdits = lock; } // true unless set otherwise

    bool BOF() const { return Live().bof; }
    bool EOF_() const { return Live().eof; } // the C library has a macro EOF
    bool NoMatch() const { return Live().noMatch; }

    // Comparison is "=" (3001); the key is that of the current index (3019 if none is set).
    void Seek(const QString& comparison, const QVariant& key) { Live().Seek(comparison, key); }
    void MoveFirst() { Live().MoveToEnd(From::First); }
    void MoveLast() { Live().MoveToEnd(From::Last); }
    void MoveNext() { Live().Step(From::After); }
    void MovePrevious() { Live().Step(From::Before); }
    // Criterion of the form: [Field] LIKE "pattern" or [Field] LIKE 'pattern', a pattern as likepattern.h tells; the
    // surrounding quote doubled stands for itself. 3077 and NoMatch true if it cannot be read.
    void FindLast(const QString& criterion) { Live().Find(From::Last, criterion); }
    void FindPrevious(const QString& criterion) { Live().Find(From::Before, criterion); }

    void AddNew() { Live().AddNew(); }
    void Edit() { Live().Edit(); }
    void Update() { Live().Update(); }
    void CancelUpdate() { Live().CancelUpdate(); }
    void Delete() { Live().Delete(); }
    void Close() { Live().Close(); }

    // While an edit is pending this is the edit's buffer. QString for text, QByteArray (UTF-8) for memo, bool, int,
    // float, QDateTime; a null QVariant where the field was never set. 3265 if there is no such field.
    QVariant Fields(const QString& name) const { return Live().Value(name); }
    // Only between AddNew or Edit and Update (3020). 3163 if a text is longer than its field.
    void SetField(const QString& name, const QVariant& value) { Live().SetValue(name, value); }

private:
    friend class Database;
    friend class ReadTransaction;
    explicit Recordset(std::shared_ptr<RecordsetState> state) : Handle(std::move(state)) {}
};
