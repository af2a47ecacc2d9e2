// One recurring event: writes its record and puts its text into the notes of its dates, or takes it out of them. Of the
// open planner alone.
#pragma once

#include "recurrence/dayrun.h"
#include "recurrence/eventtext.h"
#include "recurrence/recurdates.h"

class Recurrence
{
public:
    Recurrence(const QByteArray& rtf, const QTextCharFormat& plain, DayRun::Progress progress)
        : m_text(rtf, plain), m_progress(std::move(progress))
    {
    }

    bool HasText(); // tells the person otherwise

    // From the first entry date (month/day/year) up to and including the last, every so many days, weeks, months or
    // years. True when saved; otherwise the person has been told why and nothing was written. Days that could not be
    // written are told of too.
    bool Save(Frequency frequency, const QString& sStart, const QString& sEnd, std::int16_t iStep);

    // Takes the text out of the notes of the two dates, keys, and those between. False: some could not be written,
    // which the person has been told.
    bool TakeOut(Frequency frequency, const QString& startKey, const QString& endKey);

private:
    bool SaveRecord(Frequency frequency, const QString& startKey, const QString& endKey) const;
    void subSaveRecurseRecord(const QString& startKey, const QString& endKey, const QString& frequency) const;
    void subUpdateRecurseData(const QString& sDate, DayRun& run);
    void subRemoveRecurStr(const QString& sDate);
    bool Run(const QStringList& dates, QLatin1StringView literal, const QString& failure,
             const std::function<void(const QString& date, DayRun& run)>& step);

    EventText m_text;
    DayRun::Progress m_progress;
};
