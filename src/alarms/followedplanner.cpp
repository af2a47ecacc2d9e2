#include "alarms/followedplanner.h"

#include "alarms/alarmspan.h"
#include "plannerfile/knownservers.h"
#include "platform/desktop/clock.h"
#include "platform/engine/dbengine.h"
#include "platform/runtime/errortail.h"
#include "state/moddate.h"

#include <QTemporaryDir>

#include <algorithm>
#include <utility>

namespace {
constexpr QLatin1StringView FollowLiteral(" in TrayClock, FollowedPlanner");
constexpr qint64 ServersPause = 10 * 60; // seconds; a server does not say that its planner has changed
const QDateTime Ever(QDate(9999, 12, 31), QTime(23, 59), Qt::UTC);
} // namespace

FollowedPlanner::State FollowedPlanner::Present() const
{
    return {inistorage::IdentityOf(m_path), inistorage::IdentityOf(m_path + u"-journal"_s)};
}

bool FollowedPlanner::HasChanged() const
{
    if (m_isOnServer && std::abs(m_readAt.secsTo(desktopclock::Now())) >= ServersPause) return true;
    return Present() != m_read;
}

void FollowedPlanner::Refresh(const QDateTime& after)
{
    const bool isKnown = m_after.isValid() && m_after <= after;
    if (m_path.isEmpty() || (isKnown && !HasChanged())) return;
    const State present = Present();
    Read(after);
    m_read = present; // a failure is followed by another try
    m_readAt = desktopclock::Now();
    m_isFailing = false;
}

// A copy is read, so that nobody is shut out meanwhile. The past is left out: it may be years.
void FollowedPlanner::Read(const QDateTime& after)
{
    if (!LeadsToKnownServer(m_path)) errors::RaiseAccess(); // the person connects to a server first
    const QTemporaryDir copies;
    if (!copies.isValid()) errors::RaiseAccess();
    Database planner = DBEngine::OpenToRead(m_path, copies.path());
    m_isOnServer = !planner.ServerAddress().isEmpty();
    m_alarms = AlarmsBetween(planner, after, Ever);
    m_after = after;
    planner.Close();
}

std::vector<Alarm> FollowedPlanner::Due(const QDate& today, const QString& minute)
{
    try {
        Refresh(QDateTime(today, QTime(0, 0), Qt::UTC).addSecs(-1));
    } catch (const RunTimeError& error) {
        if (!std::exchange(m_isFailing, true)) LogError(error, FollowLiteral);
    }
    const QString key = KeyOf(GridDayOf(today));
    std::vector<Alarm> due;
    std::ranges::copy_if(m_alarms, std::back_inserter(due),
                         [&](const Alarm& alarm) { return alarm.date == key && alarm.time == minute; });
    return due;
}

std::vector<Alarm> FollowedPlanner::Between(const QDateTime& after, const QDateTime& before)
{
    Refresh(after);
    std::vector<Alarm> between;
    std::ranges::copy_if(m_alarms, std::back_inserter(between),
                         [&](const Alarm& alarm) { return IsWithin(alarm, after, before); });
    return between;
}
