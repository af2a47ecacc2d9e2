// One recurring event of the open planner: writes its record and puts its text into the notes of its dates, or removes
// it from them.
#pragma once

#include "recurrence/dayrun.h"
#include "recurrence/eventtext.h"
#include "recurrence/recurdates.h"

#include <QHash>

class Recurrence
{
public:
    Recurrence(const QByteArray& rtf, const QTextCharFormat& plain) : m_text(rtf, plain) {}

    bool HasText(); // false after a message

    // Writes the event from the first entry date (month/day/year) to the last, inclusive, every iStep units. False
    // after a message or a Cancel: nothing was written. Days that failed are reported, too, and those that a Cancel
    // could not take it out of.
    bool Save(Frequency frequency, const QString& sStart, const QString& sEnd, std::int16_t iStep);

    // Removes the text from the notes between two date keys, inclusive. False after a message or a Cancel: it may still
    // stand in some.
    bool TakeOut(Frequency frequency, const QString& startKey, const QString& endKey);

private:
    bool SaveRecord(Frequency frequency, const QString& startKey, const QString& endKey);
    void subSaveRecurseRecord(const QString& startKey, const QString& endKey, const QString& frequency);
    qsizetype WriteInto(const QStringList& dates);
    void subUpdateRecurseData(const QString& sDate, DayRun& run);
    void subRemoveRecurStr(const QString& sDate);
    void TakeBackOf(const QString& date);
    bool TakeOutOf(const QStringList& dates, const DayRun::Step& step);
    bool TakeBack(const QStringList& dates);
    void DeleteRecord();

    EventText m_text;
    QList<std::pair<QString, QVariant>> m_record; // the event's own, by field, the key first
    QHash<QString, QByteArray> m_before; // the notes of the days that the event was written into; null for none
};
