#include "alarms/alarmlists.h"

#include "alarms/alarmspan.h"
#include "alarms/firstline.h"
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
    delete m_coming;
    delete m_missed;
}

// A dialog of theirs may be open.
void AlarmLists::Unload()
{
    for (QPointer<AlarmListForm>* list : {&m_coming, &m_missed}) {
        if (!*list) continue;
        (*list)->disconnect();
        (*list)->hide();
        (*list)->deleteLater();
        list->clear();
    }
}

AlarmListForm* AlarmLists::MakeForm(const QString& title, bool canPutOff)
{
    AlarmListNeeds needs;
    needs.goTo = [this](const QDate& day) { GoTo(day); };
    needs.print = [this, title](QWidget* owner, const auto& listed) { Print(owner, title, listed); };
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
    if (m_coming) m_coming->deleteLater();
    m_coming.clear();
    if (coming.empty()) return messages::Tell(u"No alarm rings in the coming week."_s);
    m_coming = MakeForm(u"Coming Alarms"_s, false);
    m_coming->Add(coming);
    BringToFront(*m_coming);
}

void AlarmLists::mnuMissedAlarms_Click()
{
    if (RefusesWithoutPlanner()) return;
    if (m_missed && !m_missed->Listed().empty()) return BringToFront(*m_missed);
    const bool isOn = Read(settings::ListMissed) != 0;
    messages::Tell(isOn ? u"No alarm was missed since the planner was opened."_s
                        : u"Missed alarms are listed if you choose so in Events, Alarm Options."_s);
}

// It does not take the keys away from what the person is doing.
void AlarmLists::ShowMissed(const std::vector<Alarm>& missed)
{
    if (m_missed && !m_missed->isVisible()) { // those were seen
        m_missed->deleteLater();
        m_missed.clear();
    }
    if (!m_missed) {
        m_missed = MakeForm(u"Missed Alarms"_s, true);
        m_missed->setAttribute(Qt::WA_ShowWithoutActivating);
        QObject::connect(m_missed, &QDialog::finished, m_missed, m_onMissedSeen);
    }
    m_missed->Add(ListedBy(missed));
    m_missed->show();
    m_missed->raise();
}

void AlarmLists::GoTo(const QDate& day)
{
    if (!RefusesWithoutPlanner()) m_cell.ShowDay({day.year(), day.month(), day.day()});
}

void AlarmLists::Print(QWidget* owner, const QString& heading, const std::vector<ListedAlarm>& listed)
{
    std::vector<FoundLine> lines;
    for (const ListedAlarm& one : listed)
        lines.push_back(
            {one.minute.toString(u"MMM d, yyyy"_s), ShownTimeIn(one) + u"  "_s + FirstLineOf(one.alarm), {}});
    m_printing.Print(owner, heading, lines);
}
