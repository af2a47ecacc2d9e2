// The alarms of the open planner.
#pragma once

#include "alarms/alarmsource.h"

class OpenPlannerAlarms final : public AlarmSource
{
public:
    QString Planner() const override;
    // Leaves the shared table at the first, or at its end.
    std::vector<Alarm> Due(const QDate& today, const QString& minute) override;
    std::vector<Alarm> Between(const QDateTime& after, const QDateTime& before) override;
};
