// The window with the missed alarms, of the calendar or of the clock in the tray.
#pragma once

#include "alarms/alarmlistform.h"

#include <QPointer>

class MissedAlarms;
class PutOffAlarms;

class MissedList
{
public:
    // The window belongs to the client's, if there is a client. needs: all but putOff.
    MissedList(QWidget* client, PutOffAlarms& putOff, MissedAlarms& missed, AlarmListNeeds needs);
    ~MissedList() { delete m_form; }
    Q_DISABLE_COPY_MOVE(MissedList)

    void Show(const std::vector<Alarm>& missed); // behind those that nobody has closed yet
    bool ShowAgain();                            // to the front; false if none was missed
    void Unload();                               // a dialog of the window may be open

private:
    void MakeForm();

    QWidget* m_client;
    PutOffAlarms& m_putOff;
    MissedAlarms& m_missed;
    AlarmListNeeds m_needs;
    QPointer<AlarmListForm> m_form;
};
