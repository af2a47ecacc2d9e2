// Announces an alarm beside its window, if that has not come to the front: by the window's entry in the desktop's
// bar, and by a message of the desktop that can answer the alarm.
#pragma once

#include "platform/desktop/desktopnotification.h"

#include <QTimer>

class AlarmEventForm;
struct Alarm;

class AlarmNotice : public QObject
{
    Q_OBJECT

public:
    AlarmNotice(AlarmEventForm& form, const Alarm& alarm); // the form, which is about to be shown, lives longer

private Q_SLOTS:
    void Renew();

private:
    void Show();
    void Answer(const QString& action);

    AlarmEventForm& m_form;
    const QString m_text; // when and what; not for a locked screen
    DesktopNotification m_notification;
    QTimer m_wait;
};
