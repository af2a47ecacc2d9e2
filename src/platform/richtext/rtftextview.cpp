#include "platform/richtext/rtftextview.h"

#include "platform/richtext/rtfcodepage.h"
#include "platform/richtext/rtffonts.h"
#include "platform/richtext/rtfinterpreter.h"
#include "platform/richtext/rtfreader.h"
#include "platform/richtext/rtfreading.h"
#include "platform/richtext/rtfsymbols.h"
#include "platform/richtext/rtftokenizer.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace {
bool IsAscii(char32_t character)
{
    return character < 0x80;
}

bool HasHighByte(QByteArrayView bytes)
{
    return std::ranges::any_of(bytes, [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; });
}

class Viewer
{
public:
    explicit Viewer(QByteArrayView rtf) : m_tokenizer(rtf), m_end(rtf.end()) {}
    QString Run();

private:
    struct State
    {
        int font = -1; // its place in the table, -1 the default one
        int fallbackLength = 1;
        bool isFontTable = false;
        bool isFontName = false; // what stands there is a name, not one of the groups about it
    };

    void View(const RtfToken& token, QByteArrayView raw);
    void ViewText(const RtfToken& text, QByteArrayView raw);
    void ViewHex(int byte, QByteArrayView raw);
    void ViewWord(const RtfToken& word, QByteArrayView raw);
    void ViewUnicode(const RtfToken& word, QByteArrayView raw);
    void ViewSymbol(char symbol, QByteArrayView raw);
    void Open();
    void Close();
    void Obey(const RtfToken& word);
    bool SkipsOne() { return m_skip > 0 && m_skip-- > 0; }
    int Font() const { return m_state.font < 0 ? m_fonts.PlaceOfDefault() : m_state.font; }
    bool HoldsSymbols() const { return !m_state.isFontTable && m_fonts.HoldsSymbolsAt(Font()); }
    QString Decoded() const;
    void Put(QByteArrayView raw) { m_text += QLatin1StringView(raw); }
    void Flush();

    RtfTokenizer m_tokenizer;
    const char* const m_end;
    RtfFonts m_fonts;
    State m_state;
    std::vector<State> m_outer;
    qsizetype m_depthBeyond = 0; // groups that are too deep to have a state of their own
    int m_codePage = AnsiCodePage;
    int m_skip = 0;     // fallback characters still to be passed over
    QByteArray m_bytes; // not yet decoded, as a character may need more of them
    QString m_text;
};

QString Viewer::Run()
{
    m_text.reserve(m_end - m_tokenizer.At());
    for (;;) {
        const char* const start = m_tokenizer.At();
        const RtfToken token = m_tokenizer.Next();
        const QByteArrayView raw(start, token.kind == RtfToken::End ? m_end : m_tokenizer.At());
        if (token.kind == RtfToken::End) {
            Flush();
            Put(raw);
            return m_text;
        }
        View(token, raw);
    }
}

void Viewer::View(const RtfToken& token, QByteArrayView raw)
{
    if (token.kind == RtfToken::Text) return ViewText(token, raw);
    if (token.kind == RtfToken::Hex) return ViewHex(token.parameter, raw);
    Flush();
    if (token.kind == RtfToken::Word) return ViewWord(token, raw);
    if (token.kind == RtfToken::Symbol) return ViewSymbol(token.bytes[0], raw);
    Put(raw);
    if (token.kind == RtfToken::Open) Open();
    if (token.kind == RtfToken::Close) Close();
}

void Viewer::Open()
{
    m_skip = 0;
    if (m_outer.size() < RtfMaximumDepth)
        m_outer.push_back(m_state);
    else
        ++m_depthBeyond;
}

void Viewer::Close()
{
    m_skip = 0;
    if (m_depthBeyond > 0) {
        --m_depthBeyond;
    } else if (!m_outer.empty()) {
        m_state = m_outer.back();
        m_outer.pop_back();
    }
}

void Viewer::ViewText(const RtfToken& text, QByteArrayView raw)
{
    QByteArrayView bytes = text.bytes;
    // A line end in the bytes parts what stands before and behind it.
    const qsizetype gap = std::max<qsizetype>(0, raw.size() - bytes.size());
    const bool isEscaped = gap > 0 && raw[gap - 1] == '\\';
    if (m_skip > 0) {
        const qsizetype skipped = std::min<qsizetype>(m_skip, bytes.size());
        m_skip -= static_cast<int>(skipped);
        bytes = raw = bytes.sliced(skipped);
        if (bytes.isEmpty()) return;
    } else if (gap > 0 && !isEscaped) {
        Flush();
        Put(raw.first(gap));
        raw = bytes;
    }
    if (m_state.isFontName) {
        const qsizetype end = bytes.indexOf(';');
        m_fonts.AppendName(QString::fromLatin1(end < 0 ? bytes : bytes.first(end)));
        if (end >= 0) m_fonts.EndName();
    }
    if (!text.isAscii) {
        m_bytes += bytes;
    } else if (m_bytes.isEmpty() || HoldsSymbols()) {
        Flush();
        Put(raw);
    } else {
        m_bytes += bytes.first(1); // may be the second half of a character
        Flush();
        Put(bytes.sliced(1));
    }
}

void Viewer::ViewHex(int byte, QByteArrayView raw)
{
    if (SkipsOne()) return;
    if (IsAscii(static_cast<char32_t>(byte)) && m_bytes.isEmpty() && !HoldsSymbols()) return Put(raw);
    if (m_bytes.isEmpty()) Put(raw.first(raw.size() - qMin<qsizetype>(raw.size(), 4)));
    m_bytes += static_cast<char>(byte);
}

QString Viewer::Decoded() const
{
    if (HoldsSymbols()) return DecodeSymbols(m_bytes, *m_fonts.SymbolsAt(Font()));
    const int codePage = m_state.isFontTable ? m_fonts.CodePageOfOpenEntry() : m_fonts.CodePageAt(Font());
    return DecodeRtfBytes(m_bytes, codePage ? codePage : m_codePage, m_codePage);
}

void Viewer::Flush()
{
    if (m_bytes.isEmpty()) return;
    m_text += Decoded();
    m_bytes.resize(0);
}

void Viewer::ViewSymbol(char symbol, QByteArrayView raw)
{
    if (symbol == '*') m_state.isFontName = false;
    if (SkipsOne()) return;
    if (const char16_t sign = RtfSignOf(symbol))
        m_text += QChar(sign);
    else
        Put(raw);
}

void Viewer::ViewUnicode(const RtfToken& word, QByteArrayView raw)
{
    const auto whole = static_cast<char32_t>(word.parameter);
    const bool isWhole = word.parameter > 0xFFFF && whole <= QChar::LastValidCodePoint;
    const auto unit = static_cast<char16_t>(word.parameter);
    if (!isWhole && IsAscii(unit)) return Put(raw);
    m_skip = m_state.fallbackLength;
    const RtfSymbols* const symbols = IsPrivateSymbol(unit) && !isWhole ? m_fonts.SymbolsAt(Font()) : nullptr;
    const char byte = static_cast<char>(unit);
    if (symbols)
        m_text += DecodeSymbols(QByteArrayView(&byte, 1), *symbols);
    else if (isWhole)
        m_text += QStringView(QChar::fromUcs4(whole));
    else
        m_text += QChar(unit);
}

void Viewer::ViewWord(const RtfToken& word, QByteArrayView raw)
{
    m_skip = 0;
    if (word.IsWord("u") && word.hasParameter) return ViewUnicode(word, raw);
    const char16_t sign = RtfInterpreter::CharacterOf(word.bytes);
    if (!IsAscii(sign)) {
        m_text += QChar(sign);
        return;
    }
    Obey(word);
    Put(raw);
}

// What the words say of fonts and of how characters are written.
void Viewer::Obey(const RtfToken& word)
{
    struct Row
    {
        QByteArrayView name;
        void (*act)(Viewer& viewer, int parameter);
    };
    static constexpr auto page = [](Viewer& viewer, int number) { viewer.m_codePage = number; };
    static constexpr Row rows[] = {
        {"f",
         [](Viewer& viewer, int number) {
             if (!viewer.m_state.isFontTable) {
                 viewer.m_state.font = viewer.m_fonts.PlaceOf(number);
                 return;
             }
             viewer.m_fonts.Begin(number);
             viewer.m_state.isFontName = true;
         }},
        {"fcharset",
         [](Viewer& viewer, int number) {
             if (viewer.m_state.isFontTable) viewer.m_fonts.SetCharset(number);
         }},
        {"cpg",
         [](Viewer& viewer, int number) {
             if (viewer.m_state.isFontTable) viewer.m_fonts.SetCodePage(number);
         }},
        {"fonttbl", [](Viewer& viewer, int) { viewer.m_state.isFontTable = true; }},
        {"falt", [](Viewer& viewer, int) { viewer.m_state.isFontName = false; }},
        {"plain", [](Viewer& viewer, int) { viewer.m_state.font = -1; }},
        {"uc",
         [](Viewer& viewer, int number) { viewer.m_state.fallbackLength = std::clamp(number, 0, RtfLongestFallback); }},
        {"deff", [](Viewer& viewer, int number) { viewer.m_fonts.SetDefault(number); }},
        {"ansicpg", page},
        {"ansi", [](Viewer& viewer, int) { page(viewer, AnsiCodePage); }},
        {"mac", [](Viewer& viewer, int) { page(viewer, MacCodePage); }},
        {"pc", [](Viewer& viewer, int) { page(viewer, PcCodePage); }},
        {"pca", [](Viewer& viewer, int) { page(viewer, PcMultilingualCodePage); }},
    };
    const auto row = std::ranges::find(rows, word.bytes, &Row::name);
    if (row != std::end(rows)) row->act(*this, word.ParameterOr(row->name == QByteArrayView("uc") ? 1 : 0));
}

QString ReadView(QByteArrayView stored)
{
    return LooksLikeRtf(stored) ? Viewer(stored).Run() : PlainNote(stored);
}

bool IsUnitOf(int parameter, char32_t folded)
{
    const auto unit = static_cast<char16_t>(parameter);
    return parameter > 0xFFFF || QChar::isHighSurrogate(unit) || IsPrivateSymbol(unit) || FoldedCase(unit) == folded;
}

// Whether the code that begins behind a backslash may stand for the character.
bool MayBe(RtfTokenizer code, char32_t folded)
{
    const RtfToken token = code.Next();
    if (token.kind == RtfToken::Hex) return true;
    if (token.kind == RtfToken::Symbol) return RtfSignOf(token.bytes[0]) == folded;
    if (token.kind != RtfToken::Word) return false;
    return token.IsWord("u") ? IsUnitOf(token.parameter, folded) : RtfInterpreter::CharacterOf(token.bytes) == folded;
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
