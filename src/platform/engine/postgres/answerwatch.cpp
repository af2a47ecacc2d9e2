#include "platform/engine/postgres/answerwatch.h"

#include <linux/tcp.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace {
constexpr std::chrono::milliseconds BetweenLooks{500};

// What the other machine has acknowledged and sent. A local socket does not tell, and needs no time for the way.
unsigned long long BytesOf(int socket)
{
    tcp_info info = {};
    socklen_t size = sizeof info;
    if (::getsockopt(socket, IPPROTO_TCP, TCP_INFO, &info, &size) != 0) return 0;
    return info.tcpi_bytes_acked + info.tcpi_bytes_received;
}

int Duplicate(int socket)
{
    const int duplicate = ::fcntl(socket, F_DUPFD_CLOEXEC, 0);
    if (duplicate < 0) throw std::system_error(errno, std::generic_category());
    return duplicate;
}
} // namespace

AnswerWatch::AnswerWatch(int socket) : m_socket(Duplicate(socket)), m_thread([this] { Run(); }) {}

AnswerWatch::~AnswerWatch()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isOver = true;
    }
    m_wake.notify_one();
    m_thread.join();
    ::close(m_socket);
}

bool AnswerWatch::HasShut() const
{
    const std::lock_guard lock(m_mutex);
    return m_hasShut;
}

AnswerWatch::Call::Call(AnswerWatch& watch, std::chrono::milliseconds longestSilence) : m_watch(watch)
{
    const std::lock_guard lock(watch.m_mutex);
    watch.m_isCalling = true;
    watch.m_silence = longestSilence;
    watch.m_end = Clock::now() + longestSilence;
    // A call that ends wakes nobody, and the next one finds the thread awake: most calls are much shorter than a look.
    if (watch.m_sleeps) watch.m_wake.notify_one();
}

AnswerWatch::Call::~Call()
{
    const std::lock_guard lock(m_watch.m_mutex);
    m_watch.m_isCalling = false;
}

void AnswerWatch::Run()
{
    std::unique_lock lock(m_mutex);
    while (!m_isOver) {
        m_sleeps = !m_isCalling;
        if (m_sleeps) {
            m_wake.wait(lock);
        } else {
            m_wake.wait_until(lock, std::min(m_end, Clock::now() + BetweenLooks));
            Look();
        }
    }
}

void AnswerWatch::Look()
{
    if (!m_isCalling) return;
    const auto now = Clock::now();
    const unsigned long long bytes = BytesOf(m_socket);
    if (std::exchange(m_bytes, bytes) != bytes) {
        m_end = now + m_silence;
    } else if (now >= m_end) {
        ::shutdown(m_socket, SHUT_RDWR);
        m_hasShut = true;
        m_isCalling = false;
    }
}
