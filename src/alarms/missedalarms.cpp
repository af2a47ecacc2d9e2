#include "alarms/missedalarms.h"

#include "alarms/alarmspan.h"
#include "platform/desktop/clock.h"
#include "settings/settings.h"

namespace {
constexpr int Minute = 60; // seconds
}

void MissedAlarms::Follow()
{
    End();
    if (Read(settings::ListMissed) == 0) return;
    m_planner = m_source.Planner();
    if (m_planner.isEmpty()) return;
    const QDateTime now = WallMinute(desktopclock::Now());
    m_looked = now.addSecs(-Minute); // the clock has this minute still to look at
    const QDateTime until = m_heard.Of(m_planner).until;
    if (until.isValid() && until < m_looked)
        List(until, now);
    else
        m_heard.SetUntil(m_planner, m_looked);
}

void MissedAlarms::Looked(const QDateTime& minute)
{
    if (m_planner.isEmpty()) return;
    const QDateTime former = std::exchange(m_looked, minute);
    if (former.secsTo(minute) > Minute) List(former, minute);
}

void MissedAlarms::List(const QDateTime& after, const QDateTime& before)
{
    std::vector<Alarm> missed = m_source.Between(after, before);
    const auto heard = m_heard.Of(m_planner).answered;
    std::erase_if(missed, [&](const Alarm& alarm) { return heard.contains(WallMinuteOf(alarm)); });
    m_heard.SetUntil(m_planner, before.addSecs(-Minute));
    if (!missed.empty()) m_show(missed);
}

bool MissedAlarms::IsHeard(const QDateTime& minute)
{
    return !m_planner.isEmpty() && m_heard.Of(m_planner).answered.contains(minute);
}

void MissedAlarms::Answered(const QDateTime& minute)
{
    if (!m_planner.isEmpty()) m_heard.Add(m_planner, minute);
}

void MissedAlarms::End()
{
    if (!m_planner.isEmpty()) m_heard.SetUntil(m_planner, m_looked);
    m_planner.clear();
}
