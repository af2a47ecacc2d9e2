#include "platform/richtext/rtftokenizer.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {

constexpr std::array<bool, 256> TableOf(const char* characters, int count)
{
    std::array<bool, 256> table{};
    for (int i = 0; i < count; ++i)
        table[static_cast<unsigned char>(characters[i])] = true;
    return table;
}

constexpr auto Skipped = TableOf("\r\n\0", 3);
constexpr auto EndsText = TableOf("{}\\\r\n\0", 6);

bool In(const std::array<bool, 256>& table, char character)
{
    return table[static_cast<unsigned char>(character)];
}

bool IsLetter(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

int HexDigit(char character)
{
    if (IsDigit(character)) return character - '0';
    const char lower = static_cast<char>(character | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

} // namespace

RtfToken RtfTokenizer::Next()
{
    while (m_at != m_end && In(Skipped, *m_at))
        ++m_at;
    if (m_at == m_end) return {};
    switch (*m_at) {
    case '{':
        ++m_at;
        return {.kind = RtfToken::Open};
    case '}':
        ++m_at;
        return {.kind = RtfToken::Close};
    case '\\':
        ++m_at;
        return Control();
    default:
        return Text();
    }
}

RtfToken RtfTokenizer::Control()
{
    if (m_at == m_end) return {};
    if (IsLetter(*m_at)) return Word();
    const char* const symbol = m_at++;
    // Escaped braces and backslashes are text, since they may be the second byte of a character.
    const bool isText = *symbol == '\\' || *symbol == '{' || *symbol == '}';
    if (*symbol == '\'') return Hex();
    return {.kind = isText ? RtfToken::Text : RtfToken::Symbol, .bytes = QByteArrayView(symbol, 1)};
}

RtfToken RtfTokenizer::Word()
{
    const char* const start = m_at;
    while (m_at != m_end && IsLetter(*m_at))
        ++m_at;
    RtfToken token{.kind = RtfToken::Word, .bytes = QByteArrayView(start, m_at)};
    ReadParameter(token);
    if (m_at != m_end && *m_at == ' ') ++m_at;
    if (token.IsWord("bin") && token.parameter > 0) return Binary(token.parameter);
    return token;
}

void RtfTokenizer::ReadParameter(RtfToken& token)
{
    const bool isNegative = m_at != m_end && *m_at == '-' && m_end - m_at > 1 && IsDigit(m_at[1]);
    if (isNegative) ++m_at;
    constexpr qint64 Limit = std::numeric_limits<int>::max();
    qint64 value = 0;
    for (; m_at != m_end && IsDigit(*m_at); ++m_at) {
        token.hasParameter = true;
        value = std::min(Limit, value * 10 + (*m_at - '0'));
    }
    token.parameter = static_cast<int>(isNegative ? -value : value);
}

RtfToken RtfTokenizer::Hex()
{
    RtfToken token{.kind = RtfToken::Hex};
    if (m_end - m_at < 2 || HexDigit(m_at[0]) < 0 || HexDigit(m_at[1]) < 0) return token; // reads as a NUL
    token.parameter = HexDigit(m_at[0]) * 16 + HexDigit(m_at[1]);
    m_at += 2;
    return token;
}

RtfToken RtfTokenizer::Text()
{
    const char* const start = m_at;
    unsigned char all = 0;
    for (; m_at != m_end && !In(EndsText, *m_at); ++m_at)
        all |= static_cast<unsigned char>(*m_at);
    return {.kind = RtfToken::Text, .isAscii = all < 0x80, .bytes = QByteArrayView(start, m_at)};
}

RtfToken RtfTokenizer::Binary(int length)
{
    const char* const start = m_at;
    m_at += std::min<qptrdiff>(length, m_end - m_at);
    return {.kind = RtfToken::Binary, .bytes = QByteArrayView(start, m_at)};
}
