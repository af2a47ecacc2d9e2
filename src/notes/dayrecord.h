// One day's record of a workgroup's planner while this user edits it: the engine's record lock is the day's lock. It
// stands on a recordset of its own, so that nothing that is looked up meanwhile can end the edit.
#pragma once

#include "platform/engine/recordset.h"

class DayRecord
{
public:
    // Goes to the day's record in the open planner, first making one for a day that has none; true where there was one.
    // On the record that is held already it stays, with its lock. Where another user has made it in the same moment,
    // that is logged under the literal; other errors of the making leave no record.
    bool Seek(const QString& key, QLatin1StringView literal);
    QByteArray Text() const;                                  // as the file has it
    const QByteArray& LockedText() const { return m_locked; } // as it was when it was locked
    void Edit(); // takes the lock: 3186, 3197 or 3260 where another user has it

    const QString& Key() const { return m_key; } // of the last look
    bool IsHeld() const { return m_held; }
    bool Holds(const QString& key) const { return m_held && m_key == key; }

    // Stores the text and lets go; where it fails the record stays held. After a connection to a server was broken, and
    // the lock with it, the next try takes the record again: 3197 if it is neither as it was under the lock nor what
    // the try before wrote, since that can have come through unheard.
    void Commit(const QByteArray& rtf);
    bool IsBroken() const { return m_broken; }
    QByteArray TakeTheirs(); // what stands there now counts from here as what was locked
    void GiveUp();           // lets go, the file is as it was
    void Close();            // likewise, before the planner is closed or another opened

private:
    bool MakeNew(const QString& key, QLatin1StringView literal);
    void Make(const QString& key);
    void TakeAgain();

    Recordset m_record;
    QString m_key;
    QByteArray m_locked; // its text when it was locked
    QByteArray m_tried;  // the last text that was to be stored
    bool m_held = false;
    bool m_broken = false;
};

bool IsRefusal(int error); // one of the three numbers by which the engine refuses a record
