// The record of one day in a workgroup's planner while this user edits it. Its record lock is the day's lock. It has a
// recordset of its own, since moving a shared one would end the edit.
#pragma once

#include "platform/engine/recordset.h"

class DayRecord
{
public:
    // Goes to the day's record in the open planner and makes one if there is none. True if there was one, or if it is
    // the record already held, which keeps its lock. If another user makes the record at the same moment, that error is
    // logged under the literal; other errors are raised and no record is made.
    bool Seek(const QString& key, QLatin1StringView literal);
    QByteArray Text() const;                                  // as stored
    const QByteArray& LockedText() const { return m_locked; } // as stored when it was locked
    void Edit(); // locks the record: CouldNotSave, DataChanged or RecordLocked if another user has it

    const QString& Key() const { return m_key; } // of the last Seek
    bool IsHeld() const { return m_held; }
    bool Holds(const QString& key) const { return m_held && m_key == key; }

    // Stores the text and releases the lock. On an error the record stays held. A broken connection loses the lock, so
    // the next try takes the record again; it raises DataChanged unless the record is as it was under the lock, or as
    // the last try wrote it.
    void Commit(const QByteArray& rtf);
    bool IsBroken() const { return m_broken; }
    QByteArray TakeTheirs(); // reads the stored text and takes it as the locked one
    void GiveUp();           // unlocks and stores nothing
    void Close();            // likewise; for a planner about to be closed

private:
    bool MakeNew(const QString& key, QLatin1StringView literal);
    void Make(const QString& key);
    void TakeAgain();

    Recordset m_record;
    QString m_key;
    QByteArray m_locked; // the text when it was locked
    QByteArray m_tried;  // the last text that Commit tried to store
    bool m_held = false;
    bool m_broken = false;
};

bool IsRefusal(int error); // CouldNotSave, DataChanged or RecordLocked
