// Where the clock finds alarms: the open planner, or the one that it follows while the window is closed.
#pragma once

#include "alarms/alarmrecords.h"

#include <QDateTime>

class AlarmSource
{
public:
    AlarmSource() = default;
    virtual ~AlarmSource() = default;
    Q_DISABLE_COPY_MOVE(AlarmSource)

    virtual QString Planner() const = 0; // its file; empty if there is none
    // Those of this date and time ("hh:mm"). The errors of the engine.
    virtual std::vector<Alarm> Due(const QDate& today, const QString& minute) = 0;
    virtual std::vector<Alarm> Between(const QDateTime& after, const QDateTime& before) = 0; // as AlarmsBetween
};
