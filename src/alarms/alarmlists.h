// The windows with lists of alarms: those of the coming week, and those that were missed.
#pragma once

#include "alarms/missedlist.h"

class HitCell;
class ListPrinting;

class AlarmLists
{
public:
    AlarmLists(QWidget& client, HitCell& cell, ListPrinting& printing, PutOffAlarms& putOff, MissedAlarms& missed);
    ~AlarmLists();

    void mnuComingAlarms_Click();
    void mnuMissedAlarms_Click(); // those of the open planner
    void Unload();                // the planner or the program ends

private:
    AlarmListNeeds NeedsOf(const QString& title);
    void GoTo(const QDate& day);
    void Print(QWidget* owner, const QString& heading, const std::vector<ListedAlarm>& listed);

    QWidget& m_client;
    HitCell& m_cell;
    ListPrinting& m_printing;
    PutOffAlarms& m_putOff;
    MissedList m_missed;
    QPointer<AlarmListForm> m_coming;
};
