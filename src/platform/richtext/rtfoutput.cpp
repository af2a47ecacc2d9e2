#include "platform/richtext/rtfoutput.h"

#include "platform/richtext/rtfsymbols.h"

#include <algorithm>
#include <utility>

namespace {

bool IsPlain(QChar character)
{
    return character >= u' ' && character <= u'~' && character != u'\\' && character != u'{' && character != u'}';
}

} // namespace

void RtfOutput::Word(QByteArrayView word)
{
    m_rtf += '\\';
    m_rtf.append(word.data(), static_cast<std::size_t>(word.size()));
    m_isAfterWord = true;
}

void RtfOutput::Word(QByteArrayView word, int parameter)
{
    Word(word);
    m_rtf += std::to_string(parameter);
}

void RtfOutput::Raw(QByteArrayView rtf)
{
    m_rtf.append(rtf.data(), static_cast<std::size_t>(rtf.size()));
    m_isAfterWord = false;
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
            Hex(one.toLatin1());
        else
            Text(QStringView(&one, 1));
    }
}

// Characters that must be escaped or written as a word.
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
        Raw(QByteArray("\\") + character.toLatin1());
        break;
    default:
        if (character.unicode() < 0x80)
            Hex(character.toLatin1());
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

// An ASCII letter must be escaped, or it would be read as a sign.
void RtfOutput::Symbol(QStringView one, const RtfSymbols& font)
{
    const char32_t symbol = one.size() == 2 ? QChar::surrogateToUcs4(one[0], one[1]) : one[0].unicode();
    if (const int byte = ByteOfSymbol(symbol, font); byte > ' ')
        Hex(static_cast<char>(byte));
    else if (symbol > ' ' && symbol <= 0x7F)
        Unicode(static_cast<char16_t>(symbol));
    else
        Text(one);
}

void RtfOutput::Hex(char byte)
{
    Raw("\\'" + QByteArray(1, byte).toHex());
}

void RtfOutput::Letter(char letter)
{
    if (std::exchange(m_isAfterWord, false)) m_rtf += ' ';
    m_rtf += letter;
}

void RtfOutput::Unicode(char16_t unit)
{
    Raw("\\u" + QByteArray::number(static_cast<qint16>(unit)) + '?');
}
