// Up to when the alarms of each planner were heard, for the list of missed ones. Kept in a file of the person's own.
// If the file cannot be written, some alarms are listed once more. Knows no window.
#pragma once

#include "alarms/alarmrecords.h"

#include <QDateTime>
#include <QSet>

#include <functional>

class HeardAlarms
{
public:
    explicit HeardAlarms(const QString& path) : m_path(path) {}

    struct Heard
    {
        QDateTime until;        // a wall minute: all up to it rang or was listed; null: not followed yet
        QSet<QString> answered; // names of alarms of the last days; a clock that is set back comes to them again
    };
    Heard Of(const QString& planner) const;
    void SetUntil(const QString& planner, const QDateTime& minute);
    void Add(const QString& planner, const Alarm& answered);
    void Forget(); // of all planners

    static QString NameOf(const Alarm& alarm); // another one of the same minute has another name

private:
    void Change(const QString& planner, const std::function<void(Heard& heard)>& change);

    const QString m_path;
};
