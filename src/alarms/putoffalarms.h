// The alarms that the person has put off. They ring again at another time, whatever planner is open, also after an end
// of the program. They are kept in a file of the person's own, since others may share the planner.
#pragma once

#include "alarms/alarmrecords.h"
#include "platform/profile/inistorage.h"

#include <QDateTime>

#include <vector>

struct PutOffAlarm
{
    Alarm alarm;
    QDateTime at; // in UTC, which a change to summer time does not move, or a wall time
    bool operator==(const PutOffAlarm&) const = default;
};

class PutOffAlarms
{
public:
    explicit PutOffAlarms(const QString& path) : m_path(path) {}

    // Replaces an alarm that has rung by its next time, either of which may be empty. False: the file cannot be written
    // and is unchanged. The alarm that has rung is then forgotten until the end of the program.
    bool Replace(const std::optional<PutOffAlarm>& rung, const std::optional<PutOffAlarm>& next);

    // The one that is to ring first, if its time has come. Reads the file only if it has changed.
    std::optional<PutOffAlarm> FirstDue(const QDateTime& now);

    std::vector<PutOffAlarm> All() const; // reads the file
    const QString& Path() const { return m_path; }

private:
    const QString m_path;
    inistorage::Identity m_read;
    std::vector<PutOffAlarm> m_alarms;   // as the file has them
    std::vector<PutOffAlarm> m_answered; // though the file still has them
};

// Replace, with a message if the next time cannot be kept.
bool PutOffOrTell(PutOffAlarms& alarms, const std::optional<PutOffAlarm>& rung, const std::optional<PutOffAlarm>& next);
