// The alarm clock while the window is closed: a picture in the desktop's tray. It is a small program of its own, so
// that it needs little memory and holds nothing of the planner; whoever runs it starts the calendar again.
#pragma once

#include "alarms/alarmclock.h"
#include "alarms/followedplanner.h"
#include "alarms/missedlist.h"
#include "platform/desktop/minutetick.h"

#include <QMenu>
#include <QSystemTrayIcon>

class TrayClock : public QObject
{
    Q_OBJECT

public:
    // planner: its file; empty: only what was put off rings. minute: AlarmClock::LastMinute() of the calendar.
    TrayClock(const QString& planner, const QString& minute);

    QString LastMinute() const { return m_clock.LastMinute(); }

Q_SIGNALS:
    void Wanted(const QString& day); // the calendar, on this day, if its key is not empty
    void Ended();                    // by the person
    void TrayAppeared();             // too late for this process: the toolkit looks for a tray once

private:
    void MakeIcon();
    void Tick();
    AlarmListNeeds ListNeeds();

    FollowedPlanner m_planner;
    PutOffAlarms m_putOff;
    MissedAlarms m_missed;
    AlarmClock m_clock;
    MissedList m_list;
    QMenu m_menu;
    QSystemTrayIcon m_icon;
    MinuteTick m_minute;
};
