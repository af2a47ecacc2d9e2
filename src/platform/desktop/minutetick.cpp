#include "platform/desktop/minutetick.h"

#include <QSocketNotifier>

#include <sys/timerfd.h>

#include <cstdint>
#include <ctime>
#include <unistd.h>

MinuteTick::MinuteTick() : m_timer(::timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC | TFD_NONBLOCK))
{
    connect(new QSocketNotifier(m_timer, QSocketNotifier::Read, this), &QSocketNotifier::activated, this,
            &MinuteTick::TakeTick);
    Arm();
}

MinuteTick::~MinuteTick()
{
    ::close(m_timer);
}

void MinuteTick::Arm()
{
    constexpr time_t Minute = 60;
    timespec now = {};
    ::clock_gettime(CLOCK_REALTIME, &now);
    itimerspec next = {};
    next.it_value.tv_sec = (now.tv_sec / Minute + 1) * Minute;
    ::timerfd_settime(m_timer, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &next, nullptr);
}

// The read fails if the clock was set, which is a reason to look, too.
void MinuteTick::TakeTick()
{
    std::uint64_t ticks = 0;
    [[maybe_unused]] const auto taken = ::read(m_timer, &ticks, sizeof ticks);
    Arm();
    Q_EMIT Tick();
}
