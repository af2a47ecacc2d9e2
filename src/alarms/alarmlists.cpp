#include "alarms/alarmlists.h"

#include "alarms/alarmspan.h"
#include "alarms/firstline.h"
#include "alarms/putoffalarms.h"
#include "platform/desktop/clock.h"
#include "state/moddate.h"
#include "state/plannerstate.h"
#include "state/refusals.h"
#include "tools/foundmodel.h"
#include "tools/hitcell.h"
#include "tools/listprinting.h"

#include <algorithm>

namespace {
constexpr int Days = 7;

std::vector<ListedAlarm> ComingAlarms(const PutOffAlarms& putOff)
{
    const QDateTime now = desktopclock::Now(), end = now.addDays(Days);
    std::vector<ListedAlarm> coming;
    for (const Alarm& alarm : AlarmsWithin(AllAlarms(g_dbPlanner), WallMinute(now), WallMinute(end)))
        coming.push_back({WallMinuteOf(alarm), alarm});
    for (const PutOffAlarm& one : putOff.All())
        if (one.at > now && one.at < end) coming.push_back({WallMinute(one.at.toLocalTime()), one.alarm});
    std::ranges::stable_sort(coming, {}, &ListedAlarm::minute);
    return coming;
}

void BringToFront(QWidget& window)
{
    window.show();
    window.raise();
    window.activateWindow();
}
} // namespace

// They use objects that are about to be deleted.
AlarmLists::~AlarmLists()
{
    Unload();
}

void AlarmLists::Unload()
{
    delete m_coming;
    delete m_missed;
}

AlarmListForm* AlarmLists::MakeForm(const QString& title, bool canPutOff)
{
    AlarmListNeeds needs;
    needs.goTo = [this](const Alarm& alarm) { GoTo(alarm); };
    needs.print = [this, title](const auto& listed) { Print(title, listed); };
    if (canPutOff)
        needs.putOff = [this](const Alarm& alarm, const QDateTime& next) {
            return PutOffOrTell(m_putOff, {}, PutOffAlarm{alarm, next});
        };
    return new AlarmListForm(m_client.window(), title, needs);
}

// The window is replaced each time, so that it is as long as the present moment says.
void AlarmLists::mnuComingAlarms_Click()
{
    if (RefusesWithoutPlanner()) return;
    const auto coming = ComingAlarms(m_putOff);
    delete m_coming;
    if (coming.empty()) return messages::Tell(u"No alarm rings in the coming week."_s);
    m_coming = MakeForm(u"Coming Alarms"_s, false);
    m_coming->Add(coming);
    BringToFront(*m_coming);
}

// It does not take the keys away from what the person is doing.
void AlarmLists::ShowMissed(const std::vector<Alarm>& missed)
{
    if (!m_missed) {
        m_missed = MakeForm(u"Missed Alarms"_s, true);
        m_missed->setAttribute(Qt::WA_ShowWithoutActivating);
    }
    m_missed->Add(ListedBy(missed));
    m_missed->show();
    m_missed->raise();
}

void AlarmLists::GoTo(const Alarm& alarm)
{
    if (const auto day = DayOfKey(alarm.date)) m_cell.ShowDay(*day);
}

void AlarmLists::Print(const QString& heading, const std::vector<ListedAlarm>& listed)
{
    std::vector<FoundLine> lines;
    for (const ListedAlarm& one : listed)
        lines.push_back(
            {one.minute.toString(u"MMM d, yyyy"_s), ShownTimeIn(one) + u"  "_s + FirstLineOf(one.alarm), {}});
    m_printing.Print(m_client.window(), heading, lines);
}
