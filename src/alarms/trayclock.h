// The alarm clock while the window is closed: a picture in the desktop's tray. It is a small program of its own, so
// that it needs little memory and holds nothing of the planner; whoever runs it starts the calendar again.
#pragma once

#include "alarms/alarmclock.h"
#include "alarms/followedplanner.h"

#include <QMenu>
#include <QPointer>
#include <QSystemTrayIcon>
#include <QTimer>

class AlarmListForm;

class TrayClock : public QObject
{
    Q_OBJECT

public:
    explicit TrayClock(const QString& planner); // its file; empty: only what was put off rings

Q_SIGNALS:
    void Wanted(const QString& day); // the calendar, on this day, if its key is not empty
    void Ended();                    // by the person

private:
    void MakeIcon();
    void Tick();
    void WaitForMinute();
    void ShowMissed(const std::vector<Alarm>& missed);

    FollowedPlanner m_planner;
    PutOffAlarms m_putOff;
    MissedAlarms m_missed;
    AlarmClock m_clock;
    QMenu m_menu;
    QSystemTrayIcon m_icon;
    QTimer m_minute;
    QPointer<AlarmListForm> m_list;
};
