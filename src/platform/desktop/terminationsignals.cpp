#include "platform/desktop/terminationsignals.h"

#include <QSocketNotifier>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace {
constexpr std::array<int, 3> Watched = {SIGTERM, SIGINT, SIGHUP};
std::array<int, 2> g_pipe = {-1, -1};

void OnSignal(int)
{
    const char byte = 1;
    [[maybe_unused]] const auto written = ::write(g_pipe[1], &byte, 1);
}

void SetHandlers(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int number : Watched)
        sigaction(number, &action, nullptr);
}
} // namespace

TerminationSignals::TerminationSignals(QObject* parent, const std::function<void()>& received) : QObject(parent)
{
    if (::pipe2(g_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
    auto* notifier = new QSocketNotifier(g_pipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [received] {
        char byte = 0;
        if (::read(g_pipe[0], &byte, 1) == 1) received();
    });
    SetHandlers(OnSignal);
}

TerminationSignals::~TerminationSignals()
{
    if (g_pipe[0] < 0) return;
    SetHandlers(SIG_DFL);
    for (int& end : g_pipe)
        ::close(std::exchange(end, -1));
}
