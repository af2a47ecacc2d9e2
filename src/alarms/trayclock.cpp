#include "alarms/trayclock.h"

#include "alarms/alarmfiles.h"
#include "alarms/alarmlistform.h"
#include "alarms/alarmspan.h"
#include "platform/desktop/clock.h"
#include "platform/runtime/errortail.h"
#include "state/moddate.h"

#include <QIcon>

namespace {
constexpr QLatin1StringView TrayLiteral(" in TrayClock");
constexpr int OneMinute = 60 * 1000; // milliseconds
} // namespace

TrayClock::TrayClock(const QString& planner)
    : m_planner(planner), m_putOff(alarmfiles::PutOff()),
      m_missed(m_planner, alarmfiles::Heard(), [this](const auto& missed) { ShowMissed(missed); }),
      m_clock(m_planner, nullptr, m_putOff, m_missed)
{
    m_minute.setSingleShot(true);
    m_minute.setTimerType(Qt::PreciseTimer);
    connect(&m_minute, &QTimer::timeout, this, Guarded(TrayLiteral, [this] { Tick(); }));
    MakeIcon();
    m_clock.FollowPlanner();
    m_minute.start(0);
}

void TrayClock::MakeIcon()
{
    connect(m_menu.addAction(u"&Open Orrelin"_s), &QAction::triggered, this, [this] { Q_EMIT Wanted({}); });
    connect(m_menu.addAction(u"E&xit"_s), &QAction::triggered, this, &TrayClock::Ended);
    m_icon.setIcon(QIcon(u":/icons/orrelin.svg"_s));
    m_icon.setToolTip(u"Orrelin: alarms ring"_s);
    m_icon.setContextMenu(&m_menu);
    connect(&m_icon, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason != QSystemTrayIcon::Context) Q_EMIT Wanted({});
    });
}

// At the start of a session the tray may come later.
void TrayClock::Tick()
{
    if (!m_icon.isVisible() && QSystemTrayIcon::isSystemTrayAvailable()) m_icon.show();
    m_clock.tmAlarm_Timer();
    WaitForMinute();
}

// One look a minute, at its beginning: the computer wakes up for it.
void TrayClock::WaitForMinute()
{
    constexpr int Late = 50; // rather than early
    m_minute.start(OneMinute - desktopclock::Now().time().msecsSinceStartOfDay() % OneMinute + Late);
}

void TrayClock::ShowMissed(const std::vector<Alarm>& missed)
{
    if (!m_list) {
        AlarmListNeeds needs;
        needs.goTo = [this](const QDate& day) { Q_EMIT Wanted(KeyOf({day.year(), day.month(), day.day()})); };
        needs.putOff = [this](const Alarm& alarm, const QDateTime& next) {
            return PutOffOrTell(m_putOff, {}, PutOffAlarm{alarm, next});
        };
        m_list = new AlarmListForm(nullptr, u"Missed Alarms"_s, needs);
        connect(m_list, &QDialog::finished, this, [this] { m_missed.Seen(); });
    }
    m_list->Add(ListedBy(missed));
    m_list->show();
    m_list->raise();
}
