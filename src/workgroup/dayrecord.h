// One day's record of a workgroup's planner while this user edits it: the record lock of the engine is the day's lock.
#pragma once

#include <QByteArray>
#include <QString>

// Takes the day's record, first making one for a day that has none; true where there was one already. 3186, 3197 or
// 3260 where another user has it: then nothing is held.
bool TakeDay(const QString& key);

void CommitDay(const QByteArray& rtf); // stores the text in the record that was taken, and lets go of it
void GiveDayUp();                      // lets go of it unchanged

bool IsRefusal(int error); // one of the three numbers by which the engine refuses a record
