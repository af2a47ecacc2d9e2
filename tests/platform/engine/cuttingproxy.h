// A proxy between a program and the test's server. It cuts the line at a chosen word of the program.
#pragma once

#include <QByteArray>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <array>
#include <atomic>
#include <cstring>
#include <poll.h>
#include <thread>
#include <unistd.h>

class CuttingProxy
{
public:
    enum Cut
    {
        Never,
        BeforeWord, // the server never gets the word
        AfterAnswer // the server has run the statement, and its answer is lost
    };

    explicit CuttingProxy(int serverPort) : m_serverPort(serverPort), m_listener(::socket(AF_INET, SOCK_STREAM, 0))
    {
        sockaddr_in address = Loopback(0);
        socklen_t size = sizeof address;
        ::bind(m_listener, reinterpret_cast<sockaddr*>(&address), size);
        ::listen(m_listener, 8);
        ::getsockname(m_listener, reinterpret_cast<sockaddr*>(&address), &size);
        m_port = ntohs(address.sin_port);
        m_thread = std::thread([this] { Serve(); });
    }
    ~CuttingProxy()
    {
        ::shutdown(m_listener, SHUT_RDWR);
        m_thread.join();
        ::close(m_listener);
    }

    int Port() const { return m_port; }
    void CutAt(Cut cut) { m_cut = cut; }      // once, at the next COMMIT
    void Shut(bool shut) { m_isShut = shut; } // refuses new connections
    void Slow() { m_isSlow = true; }          // refuses late, and sends the server's answers in small pieces
    // Until both ends of the connection are closed.
    bool IsForwarding() const { return m_isForwarding; }
    // Reports another process number than the server's, as a pooler does.
    void PretendToBeAPooler() { m_isPooler = true; }

private:
    static constexpr QByteArrayView Word{"COMMIT", 7}; // with its final zero

    static sockaddr_in Loopback(int port)
    {
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        address.sin_port = htons(static_cast<uint16_t>(port));
        return address;
    }

    void Serve()
    {
        for (int program = ::accept(m_listener, nullptr, nullptr); program >= 0;
             program = ::accept(m_listener, nullptr, nullptr)) {
            if (m_isShut) {
                if (m_isSlow) std::this_thread::sleep_for(std::chrono::milliseconds(200));
                ::close(program);
                continue;
            }
            const int server = ::socket(AF_INET, SOCK_STREAM, 0);
            const sockaddr_in address = Loopback(m_serverPort);
            ::connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address);
            m_isForwarding = true;
            Forward(program, server);
            ::close(server);
            ::close(program);
            m_isForwarding = false;
        }
    }

    void Forward(int program, int server)
    {
        bool answerIsLost = false;
        while (true) {
            std::array<pollfd, 3> ends = {{{program, POLLIN, 0}, {server, POLLIN, 0}, {m_listener, 0, 0}}};
            ::poll(ends.data(), ends.size(), 100);
            if (ends[0].revents) {
                const QByteArray bytes = Read(program);
                const bool due = m_cut != Never && bytes.contains(Word);
                answerIsLost = due && m_cut == AfterAnswer;
                if (due && m_cut.exchange(Never) == BeforeWord) return;
                if (bytes.isEmpty() || !Write(server, bytes)) return;
            }
            if (ends[1].revents) {
                QByteArray bytes = Read(server);
                if (bytes.isEmpty() || answerIsLost) return;
                // The message with the process number: 'K', its length 12, the number, a secret.
                const qsizetype key = m_isPooler ? bytes.indexOf(QByteArray("K\0\0\0\x0c", 5)) : -1;
                if (key >= 0) bytes[key + 8] = static_cast<char>(bytes[key + 8] ^ 1);
                if (!WriteTo(program, bytes)) return;
            }
            if (ends[2].revents & POLLHUP) return;
        }
    }

    bool WriteTo(int program, const QByteArray& bytes) const
    {
        if (!m_isSlow) return Write(program, bytes);
        for (qsizetype at = 0; at < bytes.size(); at += 4096) {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            if (!Write(program, bytes.mid(at, 4096))) return false;
        }
        return true;
    }

    static QByteArray Read(int socket)
    {
        std::array<char, 1 << 16> buffer;
        const ssize_t got = ::recv(socket, buffer.data(), buffer.size(), 0);
        return got > 0 ? QByteArray(buffer.data(), got) : QByteArray();
    }
    static bool Write(int socket, const QByteArray& bytes)
    {
        for (qsizetype at = 0; at < bytes.size();) {
            const ssize_t sent =
                ::send(socket, bytes.constData() + at, static_cast<std::size_t>(bytes.size() - at), MSG_NOSIGNAL);
            if (sent < 0) return false;
            at += sent;
        }
        return true;
    }

    int m_serverPort;
    int m_listener;
    int m_port = 0;
    std::atomic<Cut> m_cut = Never;
    std::atomic<bool> m_isForwarding = false, m_isPooler = false, m_isShut = false, m_isSlow = false;
    std::thread m_thread;
};
