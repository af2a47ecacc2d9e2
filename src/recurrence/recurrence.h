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

    // From the first entry date (month/day/year) up to and including the last, every so many days, weeks, months or
    // years. True when saved; otherwise the person has been told why and nothing was written. Days that could not be
    // written are told of too.
    bool fnRecurseDaily(const QString& sStart, const QString& sEnd, std::int16_t iStep);
    bool fnRecurseWeekly(const QString& sStart, const QString& sEnd, std::int16_t iStep);
    bool fnRecurseMonthly(const QString& sStart, const QString& sEnd, std::int16_t iStep);
    bool fnRecurseYearly(const QString& sStart, const QString& sEnd, std::int16_t iStep);
    bool HasText(); // tells the person otherwise

    // Takes the text out of the notes of the two dates, keys, and those between. False: some could not be written,
    // which the person has been told.
    bool TakeOut(Frequency frequency, const QString& startKey, const QString& endKey);

private:
    bool Save(Frequency frequency, QLatin1StringView literal, const QString& sStart, const QString& sEnd,
              std::int16_t iStep);
    bool SaveRecord(QLatin1StringView literal, const QString& startKey, const QString& endKey,
                    const QString& frequency) const;
    void subSaveRecurseRecord(const QString& startKey, const QString& endKey, const QString& frequency) const;
    void subUpdateRecurseData(const QString& sDate, DayRun& run);
    void subRemoveRecurStr(const QString& sDate);

    EventText m_text;
    DayRun::Progress m_progress;
};

// Begins an edit of the date's record, on which g_rsQMT stands. Where another user holds it the person is asked whether
// to try again; false when they have had enough, or when the run has been told of another error. While other days wait
// for the commit nobody is asked, and the error is raised.
bool fnCanSaveRecurseText(const QString& sDate, DayRun& run);
