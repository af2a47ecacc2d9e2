#include "alarms/trayclock.h"

#include "alarms/alarmfiles.h"
#include "platform/desktop/tray.h"
#include "platform/runtime/errortail.h"
#include "state/moddate.h"

#include <QFileInfo>
#include <QIcon>
#include <QTimer>

namespace {
constexpr QLatin1StringView TrayLiteral(" in TrayClock");
}

TrayClock::TrayClock(const QString& planner, const QString& minute)
    : m_planner(planner), m_putOff(alarmfiles::PutOff()), m_missed(m_planner, alarmfiles::Heard()),
      m_clock(m_planner, nullptr, m_putOff, m_missed), m_list(nullptr, m_putOff, m_missed, ListNeeds())
{
    MakeIcon();
    m_missed.SetShow([this](const auto& missed) { m_list.Show(missed); });
    m_clock.Continue(minute);
    m_clock.FollowPlanner();
    const auto tick = Guarded(TrayLiteral, [this] { Tick(); });
    connect(&m_minute, &MinuteTick::Tick, this, tick);
    QTimer::singleShot(0, this, tick);
}

void TrayClock::MakeIcon()
{
    connect(m_menu.addAction(u"&Open Orrelin"_s), &QAction::triggered, this, [this] { Q_EMIT Wanted({}); });
    connect(m_menu.addAction(u"E&xit"_s), &QAction::triggered, this, &TrayClock::Ended);
    const QString name = QFileInfo(m_planner.Planner()).fileName();
    m_icon.setIcon(QIcon(u":/icons/orrelin.svg"_s));
    m_icon.setToolTip(name.isEmpty() ? u"Orrelin"_s : u"Orrelin rings the alarms of %1"_s.arg(name));
    m_icon.setContextMenu(&m_menu);
    connect(&m_icon, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason != QSystemTrayIcon::Context) Q_EMIT Wanted({});
    });
    if (!QSystemTrayIcon::isSystemTrayAvailable()) WatchForTray(this, SIGNAL(TrayAppeared()));
}

// At the start of a session the tray may come later.
void TrayClock::Tick()
{
    if (!m_icon.isVisible() && QSystemTrayIcon::isSystemTrayAvailable()) m_icon.show();
    m_clock.tmAlarm_Timer();
}

AlarmListNeeds TrayClock::ListNeeds()
{
    AlarmListNeeds needs;
    needs.goTo = [this](const QDate& day) { Q_EMIT Wanted(KeyOf(GridDayOf(day))); };
    needs.isFar = true;
    return needs;
}
