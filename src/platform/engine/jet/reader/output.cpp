#include "platform/engine/jet/reader/output.h"

#include <cstdlib>
#include <unistd.h>

namespace {
constexpr std::size_t HeadSize = 5;
}

Frame::Frame(jetstream::Kind kind) : m_bytes(HeadSize, '\0')
{
    m_bytes[HeadSize - 1] = static_cast<char>(kind);
}

void Frame::AddNumber(std::uint32_t number, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        m_bytes += static_cast<char>(number >> 8 * i);
}

void Frame::AddText(std::string_view text)
{
    AddNumber(static_cast<std::uint32_t>(text.size()), 4);
    m_bytes += text;
}

void Frame::Send()
{
    const std::size_t size = m_bytes.size() - HeadSize;
    for (int i = 0; i < 4; ++i)
        m_bytes[static_cast<std::size_t>(i)] = static_cast<char>(size >> 8 * i);
    for (std::size_t sent = 0; sent < m_bytes.size();) {
        const ssize_t written = ::write(STDOUT_FILENO, m_bytes.data() + sent, m_bytes.size() - sent);
        if (written <= 0) ::_exit(EXIT_FAILURE);
        sent += static_cast<std::size_t>(written);
    }
}

void Refuse(jetstream::Reason reason)
{
    Frame frame(jetstream::Refusal);
    frame.AddNumber(reason, 1);
    frame.Send();
    ::_exit(EXIT_SUCCESS);
}
