#include "alarms/alarmlists.h"

#include "alarms/alarmspan.h"
#include "alarms/firstline.h"
#include "alarms/missedalarms.h"
#include "alarms/putoffalarms.h"
#include "platform/desktop/clock.h"
#include "settings/settings.h"
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
    for (const Alarm& alarm : AlarmsBetween(g_dbPlanner, WallMinute(now), WallMinute(end)))
        coming.push_back({WallMinuteOf(alarm), alarm});
    for (const PutOffAlarm& one : putOff.All())
        if (one.at > now && one.at < end) coming.push_back({WallMinute(one.at.toLocalTime()), one.alarm});
    std::ranges::stable_sort(coming, {}, &ListedAlarm::minute);
    return coming;
}
} // namespace

AlarmLists::AlarmLists(QWidget& client, HitCell& cell, ListPrinting& printing, PutOffAlarms& putOff,
                       MissedAlarms& missed)
    : m_client(client), m_cell(cell), m_printing(printing), m_putOff(putOff),
      m_missed(&client, putOff, missed, NeedsOf(u"Missed Alarms"_s))
{
    missed.SetShow([this](const auto& alarms) { m_missed.Show(alarms); });
}

// It uses objects that are about to be deleted.
AlarmLists::~AlarmLists()
{
    delete m_coming;
}

void AlarmLists::Unload()
{
    m_missed.Unload();
    if (m_coming) m_coming->Retire();
    m_coming.clear();
}

AlarmListNeeds AlarmLists::NeedsOf(const QString& title)
{
    AlarmListNeeds needs;
    needs.goTo = [this](const QDate& day) { GoTo(day); };
    needs.print = [this, title](QWidget* owner, const auto& listed) { Print(owner, title, listed); };
    return needs;
}

// The window is replaced each time, so that it is as long as the present moment says.
void AlarmLists::mnuComingAlarms_Click()
{
    if (RefusesWithoutPlanner()) return;
    const auto coming = ComingAlarms(m_putOff);
    if (m_coming) m_coming->deleteLater();
    m_coming.clear();
    if (coming.empty()) return messages::Tell(u"No alarm rings in the coming week."_s);
    const QString title = u"Coming Alarms"_s;
    m_coming = new AlarmListForm(m_client.window(), title, NeedsOf(title));
    m_coming->Add(coming);
    m_coming->ShowInFront();
}

void AlarmLists::mnuMissedAlarms_Click()
{
    if (RefusesWithoutPlanner()) return;
    if (m_missed.ShowAgain()) return;
    const bool isOn = Read(settings::ListMissed) != 0;
    messages::Tell(isOn ? u"No alarm was missed since the planner was opened."_s
                        : u"Missed alarms are listed if you choose so in Events, Alarm Options."_s);
}

void AlarmLists::GoTo(const QDate& day)
{
    if (!RefusesWithoutPlanner()) m_cell.ShowDay(GridDayOf(day));
}

void AlarmLists::Print(QWidget* owner, const QString& heading, const std::vector<ListedAlarm>& listed)
{
    std::vector<FoundLine> lines;
    for (const ListedAlarm& one : listed)
        lines.push_back(
            {one.minute.toString(u"MMM d, yyyy"_s), ShownTimeIn(one) + u"  "_s + FirstLineOf(one.alarm), {}});
    m_printing.Print(owner, heading, lines);
}
