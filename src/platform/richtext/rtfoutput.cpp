#include "platform/richtext/rtfoutput.h"

#include "platform/richtext/rtfsymbols.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace {

bool IsPlain(QChar character)
{
    return character >= u' ' && character <= u'~' && character != u'\\' && character != u'{' && character != u'}';
}

} // namespace

void RtfOutput::Word(std::string_view word)
{
    m_rtf += '\\';
    m_rtf += word;
    m_isAfterWord = true;
}

void RtfOutput::Word(std::string_view word, int parameter)
{
    Word(word);
    Number(parameter);
}

void RtfOutput::Raw(std::string_view rtf)
{
    m_rtf += rtf;
    m_isAfterWord = false;
}

void RtfOutput::Number(int number)
{
    std::array<char, 12> digits;
    const auto end = std::to_chars(digits.begin(), digits.end(), number).ptr;
    m_rtf.append(digits.begin(), end);
}

void RtfOutput::Text(QStringView text)
{
    for (auto next = text.begin(); next != text.end();) {
        const auto special = std::find_if_not(next, text.end(), IsPlain);
        if (special != next && std::exchange(m_isAfterWord, false)) m_rtf += ' ';
        const std::size_t size = m_rtf.size();
        m_rtf.resize(size + static_cast<std::size_t>(special - next));
        std::transform(next, special, m_rtf.begin() + static_cast<std::ptrdiff_t>(size),
                       [](QChar plain) { return plain.toLatin1(); });
        next = special;
        if (next != text.end()) Character(*next++);
    }
}

void RtfOutput::Name(QStringView name)
{
    for (const QChar one : name) {
        if (one == u';')
            Hex(one.unicode());
        else
            Text(QStringView(&one, 1));
    }
}

// The characters that stand for themselves only behind a backslash, or as a word.
void RtfOutput::Character(QChar character)
{
    switch (character.unicode()) {
    case 0:
        break;
    case u'\t':
        Word("tab");
        break;
    case QChar::LineSeparator:
        Word("line");
        break;
    case QChar::Nbsp:
        Raw("\\~");
        break;
    case u'\\':
    case u'{':
    case u'}':
        m_rtf += '\\';
        m_rtf += character.toLatin1();
        m_isAfterWord = false;
        break;
    default:
        if (character.unicode() < 0x80)
            Hex(character.unicode());
        else
            Unicode(character.unicode());
    }
}

void RtfOutput::Text(QStringView text, const RtfSymbols& font)
{
    for (auto at = text.begin(); at != text.end();) {
        const bool isPair = at->isHighSurrogate() && at + 1 != text.end() && at[1].isLowSurrogate();
        const QStringView one(at, isPair ? 2 : 1);
        Symbol(one, font);
        at += one.size();
    }
}

// A letter that is none of the font's signs must not be written bare, as it would be read as a sign.
void RtfOutput::Symbol(QStringView one, const RtfSymbols& font)
{
    const char32_t symbol = one.size() == 2 ? QChar::surrogateToUcs4(one[0], one[1]) : one[0].unicode();
    if (const int byte = ByteOfSymbol(symbol, font); byte > ' ')
        Hex(static_cast<char16_t>(byte));
    else if (symbol > ' ' && symbol <= 0x7F)
        Unicode(static_cast<char16_t>(symbol));
    else
        Text(one);
}

void RtfOutput::Hex(char16_t byte)
{
    constexpr char Digits[] = "0123456789abcdef";
    m_rtf += "\\'";
    m_rtf += Digits[byte >> 4 & 15];
    m_rtf += Digits[byte & 15];
    m_isAfterWord = false;
}

void RtfOutput::Unicode(char16_t unit)
{
    m_rtf += "\\u";
    Number(static_cast<qint16>(unit));
    m_rtf += '?';
    m_isAfterWord = false;
}
