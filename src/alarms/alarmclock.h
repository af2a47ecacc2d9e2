// The alarm clock. Once a minute it shows an alarm of that very minute, or all of them if the person wants it. An alarm
// that is missed never rings. Those that were put off ring when their time has come.
#pragma once

#include "alarms/missedalarms.h"
#include "alarms/putoffalarms.h"

#include <QObject>

class QWidget;

class AlarmClock
{
public:
    // Windows open on the client's screen; null: on the first.
    AlarmClock(AlarmSource& source, QWidget* client, PutOffAlarms& putOff, MissedAlarms& missed)
        : m_source(source), m_client(client), m_putOff(putOff), m_missed(missed)
    {
    }

    void FollowPlanner(); // another planner is open, or none
    // Goes on where the clock of another process ended; call this before the planner is followed. minute: its
    // LastMinute().
    void Continue(const QString& minute) { m_sLastAlarmMinute = m_sRungElsewhere = minute; }
    QString LastMinute() const { return m_sLastAlarmMinute; }
    void mnuAlarmOptions_Click(); // asks for the options
    void tmAlarm_Timer();         // ticks every ten seconds; shows what is due and waits until its window is closed

private:
    void Follow(bool isOver);
    void Check();
    void RingPutOff();
    bool Ring(const Alarm& alarm, const std::optional<PutOffAlarm>& putOff); // false: the program ends

    AlarmSource& m_source;
    QWidget* m_client;
    QObject m_context; // of what waits for the event loop
    PutOffAlarms& m_putOff;
    MissedAlarms& m_missed;
    QString m_sLastAlarmMinute; // "hh:mm" of the last check
    QString m_sRungElsewhere;   // likewise, by the clock that ran before this one
    bool m_isRinging = false;
};
