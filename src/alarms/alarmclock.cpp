#include "alarms/alarmclock.h"

#include "alarms/alarmeventform.h"
#include "alarms/alarmrecords.h"
#include "alarms/tunes.h"
#include "platform/desktop/clock.h"
#include "platform/engine/database.h"
#include "platform/runtime/errortail.h"
#include "state/moddate.h"
#include "state/plannerstate.h"

#include <QApplication>
#include <QScopedValueRollback>

namespace {
std::optional<Alarm> DueAlarm(const QDate& today, const QString& minute)
{
    if (g_rsAlarm.IsNothing()) return std::nullopt; // an older planner without the alarm table
    if (g_rsAlarm.EOF_() && g_rsAlarm.BOF()) return std::nullopt;
    const ReadTransaction reading(g_dbPlanner);
    if (!GoToDueAlarm(g_rsAlarm, KeyOf({today.year(), today.month(), today.day()}), minute)) return std::nullopt;
    return CurrentAlarm(g_rsAlarm);
}
} // namespace

void AlarmClock::tmAlarm_Timer()
{
    if (!HasPlanner()) return;
    ErrorTail{" in MainForm, tmAlarm_Timer"_L1}([this] { Check(); });
}

void AlarmClock::Check()
{
    const QDateTime now = desktopclock::Now();
    const QString minute = now.toString(u"hh:mm"_s);
    if (minute == m_sLastAlarmMinute) return;
    m_sLastAlarmMinute = minute;
    if (m_isRinging) return; // the open alarm window stays as it is
    if (const auto alarm = DueAlarm(now.date(), minute)) Ring(*alarm);
}

void AlarmClock::Ring(const Alarm& alarm)
{
    const QScopedValueRollback<bool> ringing(m_isRinging, true);
    AlarmEventForm form(alarm, m_client.screen(), QApplication::focusWidget());
    if (!alarm.silence) form.subPlayMusic(alarm.tune);
    form.exec();
    if (!alarm.silence) StopTune(alarm.tune);
}
