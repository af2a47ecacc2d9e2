#include "alarms/missedlist.h"

#include "alarms/alarmspan.h"
#include "alarms/missedalarms.h"
#include "alarms/putoffalarms.h"
#include "platform/runtime/errortail.h"

#include <utility>

MissedList::MissedList(QWidget* client, PutOffAlarms& putOff, MissedAlarms& missed, AlarmListNeeds needs)
    : m_client(client), m_putOff(putOff), m_missed(missed), m_needs(std::move(needs))
{
    m_needs.putOff = [this](const Alarm& alarm, const QDateTime& next) {
        if (!PutOffOrTell(m_putOff, {}, PutOffAlarm{alarm, next})) return false;
        m_missed.Answered(alarm);
        return true;
    };
}

// It does not take the keys away from what the person is doing.
void MissedList::MakeForm()
{
    m_form = new AlarmListForm(m_client ? m_client->window() : nullptr, u"Missed Alarms"_s, m_needs);
    m_form->setAttribute(Qt::WA_ShowWithoutActivating);
    QObject::connect(m_form, &QDialog::finished, m_form, Guarded(" in MissedList"_L1, [this] { m_missed.Seen(); }));
}

void MissedList::Show(const std::vector<Alarm>& missed)
{
    if (m_form && !m_form->isVisible()) Unload(); // those were seen
    if (!m_form) MakeForm();
    std::vector<ListedAlarm> listed;
    for (const Alarm& alarm : missed)
        listed.push_back({WallMinuteOf(alarm), alarm});
    m_form->Add(listed);
    m_form->show();
    m_form->raise();
}

bool MissedList::ShowAgain()
{
    if (!m_form || m_form->Listed().empty()) return false;
    m_form->ShowInFront();
    return true;
}

void MissedList::Unload()
{
    if (m_form) m_form->Retire();
    m_form.clear();
}
