#include "alarms/followedplanner.h"

#include "alarms/alarmspan.h"
#include "platform/desktop/clock.h"
#include "platform/engine/dbengine.h"
#include "platform/runtime/errortail.h"
#include "state/moddate.h"

#include <QTemporaryDir>

#include <algorithm>

namespace {
constexpr qint64 ServersPause = 10 * 60; // seconds; a server does not say that its planner has changed
}

bool FollowedPlanner::HasChanged() const
{
    const State present = {inistorage::IdentityOf(m_path), inistorage::IdentityOf(m_path + u"-journal"_s)};
    if (m_isOnServer && std::abs(m_readAt.secsTo(desktopclock::Now())) >= ServersPause) return true;
    return present != m_read;
}

// What cannot be read stays as it is known.
void FollowedPlanner::Refresh()
{
    if (m_path.isEmpty() || !HasChanged()) return;
    try {
        Read();
    } catch (const RunTimeError& error) {
        LogError(error, " in TrayClock, FollowedPlanner"_L1);
    }
}

// A copy is read, so that nobody is shut out meanwhile.
void FollowedPlanner::Read()
{
    m_read = {inistorage::IdentityOf(m_path), inistorage::IdentityOf(m_path + u"-journal"_s)};
    m_readAt = desktopclock::Now();
    const QTemporaryDir copies;
    if (!copies.isValid()) return;
    Database planner = DBEngine::OpenToRead(m_path, copies.path());
    m_isOnServer = !planner.ServerAddress().isEmpty();
    m_alarms = AllAlarms(planner);
    planner.Close();
}

std::vector<Alarm> FollowedPlanner::Due(const QDate& today, const QString& minute, bool all)
{
    Refresh();
    const QString key = KeyOf({today.year(), today.month(), today.day()});
    std::vector<Alarm> due;
    std::ranges::copy_if(m_alarms, std::back_inserter(due),
                         [&](const Alarm& alarm) { return alarm.date == key && alarm.time == minute; });
    if (!all && due.size() > 1) due.resize(1);
    return due;
}

std::vector<Alarm> FollowedPlanner::Between(const QDateTime& after, const QDateTime& before)
{
    Refresh();
    return AlarmsWithin(m_alarms, after, before);
}
