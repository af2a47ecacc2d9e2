// With the option on, finds the alarms of the source that nobody could hear: while it was closed, while the
// computer slept or its clock was moved on, and while an alarm's window was open. Knows no window.
#pragma once

#include "alarms/alarmsource.h"
#include "alarms/heardalarms.h"

class MissedAlarms
{
public:
    // show gets them in their order; it must not wait.
    using Show = std::function<void(const std::vector<Alarm>& missed)>;
    MissedAlarms(AlarmSource& source, const QString& path, Show show)
        : m_source(source), m_heard(path), m_show(std::move(show))
    {
    }
    ~MissedAlarms() { End(); }

    void Follow();                         // another planner is open, or none, or the option has changed
    void Looked(const QDateTime& minute);  // the clock is about to ring the alarms of this wall minute
    bool IsHeard(const QDateTime& minute); // already; the clock was set back
    void Answered(const QDateTime& minute);

private:
    void End();
    void List(const QDateTime& after, const QDateTime& before);

    AlarmSource& m_source;
    HeardAlarms m_heard;
    const Show m_show;
    QString m_planner;  // followed; empty for none
    QDateTime m_looked; // the last wall minute
};
