#include "alarms/alarmnotice.h"

#include "alarms/againin.h"
#include "alarms/alarmeventform.h"
#include "alarms/alarmrules.h"
#include "alarms/firstline.h"
#include "platform/desktop/screenlock.h"
#include "platform/runtime/errortail.h"

#include <QApplication>

namespace {
constexpr QLatin1StringView NoticeLiteral(" in AlarmEventForm, AlarmNotice");
constexpr int TimeToComeForward = 500, TimeToSettle = 50; // milliseconds
constexpr const AgainIn& Later = AgainChoices[1];
const QString Open = u"default"_s, Ok = u"ok"_s, Again = u"later"_s;
} // namespace

AlarmNotice::AlarmNotice(AlarmEventForm& form, const Alarm& alarm)
    : m_form(form), m_text(ShownDayAndTime(alarm.date, alarm.time) + u": "_s + FirstLineOf(alarm))
{
    connect(&m_notification, &DesktopNotification::Chosen, this,
            Guarded(NoticeLiteral, [this](const QString& action) { Answer(action); }));
    m_wait.setSingleShot(true);
    connect(&m_wait, &QTimer::timeout, this, Guarded(NoticeLiteral, [this] { Show(); }));
    m_wait.start(TimeToComeForward);
    screenlock::Watch(this, SLOT(Renew()));
}

void AlarmNotice::Show()
{
    screenlock::Ask(this, [this](bool isLocked) {
        if (m_form.isActiveWindow() && !isLocked) return;
        QApplication::alert(&m_form);
        const QString later = u"Again in "_s + QString::fromLatin1(Later.text).remove(u'&');
        m_notification.Show(u"Alarm"_s, isLocked ? u"An alarm"_s : m_text,
                            {Open, u"Open"_s, Ok, u"Ok"_s, Again, later});
    });
}

// The note, which the message shows, is not for a locked screen. Several services may say that it is locked now.
void AlarmNotice::Renew()
{
    if (!m_wait.isActive()) m_wait.start(TimeToSettle);
}

void AlarmNotice::Answer(const QString& action)
{
    if (action == Ok) return m_form.accept();
    if (action == Again) return m_form.PutOff(Later);
    m_form.raise();
    m_form.activateWindow();
    m_wait.start(TimeToComeForward); // if the desktop does not let it
}
