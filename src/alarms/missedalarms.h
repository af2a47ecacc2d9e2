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
    MissedAlarms(AlarmSource& source, const QString& path) : m_source(source), m_heard(path) {}
    ~MissedAlarms() { End(); }
    void SetShow(Show show) { m_show = std::move(show); }

    // Another planner is open, or none, or the option has changed. isOver: the clock has rung this minute already.
    void Follow(bool isOver);
    // Shows what is missed before this wall minute. The engine's errors; then the next call shows it.
    void ListUpTo(const QDateTime& minute);
    void Looked(const QDateTime& minute); // the alarms of this wall minute have rung
    void Seen();                          // the person has closed the list

    bool IsHeard(const Alarm& alarm); // already; the clock was set back
    void Answered(const Alarm& alarm);

private:
    void End();

    AlarmSource& m_source;
    HeardAlarms m_heard;
    Show m_show = [](const auto&) {};
    QString m_planner;     // followed; empty for none
    QDateTime m_looked;    // the last wall minute that is done
    QDateTime m_seenUntil; // null, or where the shown list begins, which nobody has closed yet
};
