#include "platform/richtext/rtftextview.h"

#include "platform/richtext/rtfmachine.h"
#include "platform/richtext/rtfreader.h"
#include "platform/richtext/rtfsymbols.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {
// Adjacent codes are copied together.
class View final : public RtfSink
{
public:
    explicit View(qsizetype length) { m_text.reserve(length); }

    bool WantsCodes() const override { return true; }
    void Ascii(QLatin1StringView, QByteArrayView code, const RtfCharacter&) override { Code(code); }
    void Code(QByteArrayView code) override
    {
        if (code.begin() == m_codes.end())
            m_codes = {m_codes.begin(), code.end()};
        else
            m_text += QLatin1StringView(std::exchange(m_codes, code));
    }
    void Text(QStringView text, const RtfCharacter&) override
    {
        Code({});
        m_text += text;
    }
    QString Take()
    {
        Code({});
        return std::move(m_text);
    }

private:
    QString m_text;
    QByteArrayView m_codes; // not yet in the text
};

QString ReadView(QByteArrayView stored)
{
    if (!LooksLikeRtf(stored)) return PlainNote(stored);
    RtfTables tables;
    View view(stored.size());
    RtfMachine(stored, tables, view).Run();
    return view.Take();
}

bool HasHighByte(QByteArrayView bytes)
{
    return std::ranges::any_of(bytes, [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; });
}

bool IsUnitOf(int parameter, char32_t folded)
{
    const auto unit = static_cast<char16_t>(parameter);
    return parameter > 0xFFFF || QChar::isHighSurrogate(unit) || IsPrivateSymbol(unit) || FoldedCase(unit) == folded;
}

// code begins behind a backslash.
bool MayBe(RtfTokenizer code, char32_t folded)
{
    const RtfToken token = code.Next();
    if (token.kind == RtfToken::Hex) return true;
    if (token.kind != RtfToken::Word && token.kind != RtfToken::Symbol) return false;
    return token.IsWord("u") ? IsUnitOf(token.parameter, folded) : RtfMachine::CharacterOf(token.bytes) == folded;
}

bool MayHoldInView(QByteArrayView stored, char32_t folded)
{
    if (HasHighByte(stored)) return true;
    for (const char* at = stored.begin(); at != stored.end(); ++at) {
        at = static_cast<const char*>(std::memchr(at, '\\', static_cast<std::size_t>(stored.end() - at)));
        if (!at) return false;
        if (MayBe(RtfTokenizer(QByteArrayView(at, stored.end())), folded)) return true;
    }
    return false;
}
} // namespace

const TextView RtfTextView = {ReadView, MayHoldInView};
