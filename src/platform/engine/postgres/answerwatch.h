// Ends a session whose server falls silent. The library waits for an answer without any limit, and the window with it;
// a thread beside it sleeps meanwhile and shuts the socket down when nothing has come or gone for too long, which the
// library takes for a broken connection. The thread does nothing else and touches nothing but the socket.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

class AnswerWatch
{
public:
    // Of a session; a duplicate is kept, so that no other file can be hit. std::system_error without room for either.
    explicit AnswerWatch(int socket);
    ~AnswerWatch();
    AnswerWatch(const AnswerWatch&) = delete;
    AnswerWatch& operator=(const AnswerWatch&) = delete;

    bool HasShut() const; // the socket; nothing comes of the session any more

    // One call of the library, from construction to destruction.
    class Call
    {
    public:
        Call(AnswerWatch& watch, std::chrono::milliseconds longestSilence);
        ~Call();
        Call(const Call&) = delete;
        Call& operator=(const Call&) = delete;

    private:
        AnswerWatch& m_watch;
    };

private:
    using Clock = std::chrono::steady_clock;

    void Run();
    void Look();

    const int m_socket;
    mutable std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_isOver = false;
    bool m_sleeps = false; // until a call begins
    bool m_isCalling = false;
    bool m_hasShut = false;
    std::chrono::milliseconds m_silence{};
    Clock::time_point m_end;        // of the silence
    unsigned long long m_bytes = 0; // that had come and gone at the last look
    std::thread m_thread;           // the last: it uses all of them
};
