// The alarm clock: looks once a minute for an alarm of that very minute, and shows it. What is missed is missed.
#pragma once

#include <QString>

class QWidget;
struct Alarm;

class AlarmClock
{
public:
    explicit AlarmClock(QWidget& client) : m_client(client) {}

    void tmAlarm_Timer(); // every ten seconds; shows the first alarm that is due, and waits until it is closed

private:
    void Check();
    void Ring(const Alarm& alarm);

    QWidget& m_client;
    QString m_sLastAlarmMinute; // "hh:mm" of the last check
    bool m_isRinging = false;
};
