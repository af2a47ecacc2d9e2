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
    AlarmLists(QWidget& client, HitCell& cell, ListPrinting& printing, PutOffAlarms& putOff)
        : m_client(client), m_cell(cell), m_printing(printing), m_putOff(putOff)
    {
    }
    ~AlarmLists();

    void mnuComingAlarms_Click();
    void Unload();                                     // closes the lists
    void ShowMissed(const std::vector<Alarm>& missed); // in the open window, if there is one

private:
    AlarmListForm* MakeForm(const QString& title, bool canPutOff);
    void GoTo(const Alarm& alarm);
    void Print(const QString& heading, const std::vector<ListedAlarm>& listed);

    QWidget& m_client;
    HitCell& m_cell;
    ListPrinting& m_printing;
    PutOffAlarms& m_putOff;
    QPointer<AlarmListForm> m_coming, m_missed;
};
