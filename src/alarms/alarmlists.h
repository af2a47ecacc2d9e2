// The windows with lists of alarms: those of the coming week, and those that were missed.
#pragma once

#include "alarms/alarmlistform.h"

#include <QPointer>

class HitCell;
class ListPrinting;
class PutOffAlarms;

class AlarmLists
{
public:
    AlarmLists(QWidget& client, HitCell& cell, ListPrinting& printing, PutOffAlarms& putOff,
               std::function<void()> onMissedSeen)
        : m_client(client), m_cell(cell), m_printing(printing), m_putOff(putOff),
          m_onMissedSeen(std::move(onMissedSeen))
    {
    }
    ~AlarmLists();

    void mnuComingAlarms_Click();
    void mnuMissedAlarms_Click();                      // those of the open planner
    void ShowMissed(const std::vector<Alarm>& missed); // behind those that nobody has closed yet
    void Unload();                                     // the planner or the program ends

private:
    AlarmListForm* MakeForm(const QString& title, bool canPutOff);
    void GoTo(const QDate& day);
    void Print(QWidget* owner, const QString& heading, const std::vector<ListedAlarm>& listed);

    QWidget& m_client;
    HitCell& m_cell;
    ListPrinting& m_printing;
    PutOffAlarms& m_putOff;
    const std::function<void()> m_onMissedSeen;
    QPointer<AlarmListForm> m_coming, m_missed;
};
