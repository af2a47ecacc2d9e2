// The alarm clock. Once a minute it shows an alarm of that very minute. An alarm that is missed never rings.
#pragma once

#include <QString>

class QWidget;
struct Alarm;

class AlarmClock
{
public:
    explicit AlarmClock(QWidget& client) : m_client(client) {}

    void tmAlarm_Timer(); // ticks every ten seconds; shows the first due alarm and waits until its window is closed

private:
    void Check();
    void Ring(const Alarm& alarm);

    QWidget& m_client;
    QString m_sLastAlarmMinute; // "hh:mm" of the last check
    bool m_isRinging = false;
};
