#include "alarms/missedalarms.h"

#include "alarms/alarmspan.h"
#include "platform/desktop/clock.h"
#include "settings/settings.h"

#include <algorithm>
#include <utility>

namespace {
constexpr int Minute = 60; // seconds
}

void MissedAlarms::Follow(bool isOver)
{
    End();
    if (Read(settings::ListMissed) == 0) return m_heard.Forget(); // or all that ring meanwhile would be listed later
    m_planner = m_source.Planner();
    if (m_planner.isEmpty()) return;
    m_looked = WallMinute(desktopclock::Now()).addSecs(isOver ? 0 : -Minute);
    const QDateTime until = m_heard.Of(m_planner).until;
    if (until.isValid())
        m_looked = std::min(m_looked, until);
    else
        m_heard.SetUntil(m_planner, m_looked);
}

void MissedAlarms::ListUpTo(const QDateTime& minute)
{
    if (m_planner.isEmpty() || m_looked.secsTo(minute) <= Minute) return;
    std::vector<Alarm> missed = m_source.Between(m_looked, minute);
    const auto heard = m_heard.Of(m_planner).answered;
    std::erase_if(missed, [&](const Alarm& alarm) { return heard.contains(HeardAlarms::NameOf(alarm)); });
    const QDateTime before = std::exchange(m_looked, minute.addSecs(-Minute));
    if (missed.empty()) return;
    if (m_seenUntil.isNull()) m_seenUntil = before;
    m_show(missed);
}

// Not after a gap that could not be listed.
void MissedAlarms::Looked(const QDateTime& minute)
{
    if (m_looked.secsTo(minute) <= Minute) m_looked = minute;
}

void MissedAlarms::Seen()
{
    m_seenUntil = {};
    if (!m_planner.isEmpty()) m_heard.SetUntil(m_planner, m_looked);
}

bool MissedAlarms::IsHeard(const Alarm& alarm)
{
    return !m_planner.isEmpty() && m_heard.Of(m_planner).answered.contains(HeardAlarms::NameOf(alarm));
}

void MissedAlarms::Answered(const Alarm& alarm)
{
    if (!m_planner.isEmpty()) m_heard.Add(m_planner, alarm);
}

void MissedAlarms::End()
{
    if (!m_planner.isEmpty()) m_heard.SetUntil(m_planner, m_seenUntil.isNull() ? m_looked : m_seenUntil);
    m_planner.clear();
    m_seenUntil = {};
}
