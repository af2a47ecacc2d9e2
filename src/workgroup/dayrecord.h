// One day's record of a workgroup's planner while this user edits it: the engine's record lock is the day's lock. It
// stands on a recordset of its own, so that nothing that is looked up meanwhile can end the edit.
#pragma once

#include "platform/engine/recordset.h"

class DayRecord
{
public:
    // Goes to the day's record in the open planner, first making one for a day that has none; true where there was one.
    // On the record that is held already it stays, with its lock. What fails in the making is logged under the literal,
    // for another user may have made it in the same moment.
    bool Seek(const QString& key, QLatin1StringView literal);
    QByteArray Text() const; // as the file has it
    void Edit();             // takes the lock: 3186, 3197 or 3260 where another user has it

    bool IsHeld() const { return m_held; }
    bool Holds(const QString& key) const { return m_held && m_key == key; }

    void Commit(const QByteArray& rtf); // stores the text and lets go; where it fails the record stays held
    void GiveUp();                      // lets go, the file is as it was
    void Close();                       // likewise, before the planner is closed or another opened

private:
    void Make(const QString& key);

    Recordset m_record;
    QString m_key;
    bool m_held = false;
};

bool IsRefusal(int error); // one of the three numbers by which the engine refuses a record
