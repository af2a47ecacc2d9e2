#include "alarms/alarmclock.h"

#include "alarms/alarmeventform.h"
#include "alarms/alarmnotice.h"
#include "alarms/alarmoptionsform.h"
#include "alarms/alarmspan.h"
#include "alarms/tunes.h"
#include "platform/desktop/clock.h"
#include "platform/runtime/durablefile.h"
#include "platform/runtime/errortail.h"
#include "settings/settings.h"

#include <QApplication>
#include <QFileInfo>
#include <QScopedValueRollback>
#include <QTimer>

#include <utility>

namespace {
constexpr QLatin1StringView ClockLiteral(" in MainForm, tmAlarm_Timer");
}

void AlarmClock::FollowPlanner()
{
    Follow(std::exchange(m_sRungElsewhere, {}) == desktopclock::Now().toString(u"hh:mm"_s));
}

// Shows what was missed from the event loop, since the planner is just being opened.
void AlarmClock::Follow(bool isOver)
{
    m_missed.Follow(isOver);
    QTimer::singleShot(0, &m_context,
                       Guarded(ClockLiteral, [this] { m_missed.ListUpTo(WallMinute(desktopclock::Now())); }));
}

void AlarmClock::mnuAlarmOptions_Click()
{
    if (AlarmOptionsForm(m_client->window()).exec() == QDialog::Accepted)
        Follow(m_sLastAlarmMinute == desktopclock::Now().toString(u"hh:mm"_s));
}

void AlarmClock::tmAlarm_Timer()
{
    const ErrorTail tail(ClockLiteral);
    if (!m_source.Planner().isEmpty()) tail([this] { Check(); });
    if (!m_isRinging) tail([this] { RingPutOff(); });
}

void AlarmClock::Check()
{
    const QDateTime now = desktopclock::Now();
    const QString minute = now.toString(u"hh:mm"_s);
    if (minute == m_sLastAlarmMinute) return;
    m_sLastAlarmMinute = minute;
    if (m_isRinging) return; // the open alarm window stays as it is
    auto due = m_source.Due(now.date(), minute);
    if (due.size() > 1 && Read(settings::AllAlarms) == 0) due.resize(1);
    const QDateTime wall = WallMinute(now);
    ErrorTail{ClockLiteral}([&] { m_missed.ListUpTo(wall); });
    for (const Alarm& alarm : due) {
        if (m_missed.IsHeard(alarm)) continue;
        if (!Ring(alarm, {})) return;
        m_missed.Answered(alarm);
    }
    m_missed.Looked(wall);
}

// Of several copies of the program one rings. The lock ends with its process, so an alarm that nobody has answered then
// rings in another copy, or at the next start.
void AlarmClock::RingPutOff()
{
    if (!m_putOff.FirstDue(desktopclock::Now())) return;
    const QString path = m_putOff.Path() + u".ringing"_s;
    const auto lock = FileLock::Try(path);
    const bool isHeld = !lock && QFileInfo(path).isWritable(); // else the folder takes no lock
    if (isHeld) return;
    for (auto due = m_putOff.FirstDue(desktopclock::Now()); due; due = m_putOff.FirstDue(desktopclock::Now()))
        if (!Ring(due->alarm, due)) return;
}

bool AlarmClock::Ring(const Alarm& alarm, const std::optional<PutOffAlarm>& putOff)
{
    const QScopedValueRollback<bool> ringing(m_isRinging, true);
    AlarmEventForm form(alarm, putOff.has_value(), m_client ? m_client->screen() : QGuiApplication::primaryScreen(),
                        QApplication::focusWidget());
    std::optional<AlarmNotice> notice;
    if (Read(settings::NotifyOfAlarms) != 0) notice.emplace(form, alarm);
    if (!alarm.silence) form.subPlayMusic(alarm.tune);
    form.exec();
    notice.reset();
    if (!alarm.silence) StopTune(alarm.tune);
    if (!form.IsAnswered()) return false;
    std::optional<PutOffAlarm> next;
    if (form.Again().isValid()) next = {alarm, form.Again()};
    if (putOff || next) PutOffOrTell(m_putOff, putOff, next);
    return true;
}
