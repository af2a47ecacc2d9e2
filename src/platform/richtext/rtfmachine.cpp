#include "platform/richtext/rtfmachine.h"

#include "platform/richtext/rtffield.h"
#include "platform/richtext/rtfsymbols.h"

#include <algorithm>
#include <utility>

namespace {
// Deeper groups share one state. Their formats leak out, but they cost nothing.
constexpr std::size_t MaximumDepth = 1000;
} // namespace

RtfMachine::RtfMachine(QByteArrayView rtf, RtfTables& tables, RtfSink& sink)
    : m_tokenizer(rtf), m_tables(tables), m_sink(sink), m_wantsCodes(sink.WantsCodes())
{
}

void RtfMachine::Run()
{
    for (;;) {
        const char* const start = m_tokenizer.At();
        const RtfToken token = m_tokenizer.Next();
        m_code = QByteArrayView(start, m_tokenizer.At());
        Interpret(token);
        // Bytes of an unfinished character keep the code between them back.
        if (m_wantsCodes && m_bytes.isEmpty()) m_sink.Code(m_code);
        if (token.kind == RtfToken::End) break;
    }
    m_sink.Finish(m_state.paragraph, Character());
}

void RtfMachine::Interpret(const RtfToken& token)
{
    if (token.kind == RtfToken::Text) return DoText(token);
    if (token.kind == RtfToken::Hex) return DoHex(token.parameter);
    FlushBytes();
    if (token.kind == RtfToken::Word) return DoWord(token);
    if (token.kind == RtfToken::Symbol) return DoSymbol(token);
    if (token.kind == RtfToken::Open) OpenGroup();
    if (token.kind == RtfToken::Close) CloseGroup();
}

void RtfMachine::OpenGroup()
{
    m_skip = 0;
    m_isIgnorable = false;
    m_isGroupStart = true;
    if (m_outer.size() < MaximumDepth)
        m_outer.push_back(m_state);
    else
        ++m_depthBeyond;
}

void RtfMachine::CloseGroup()
{
    m_skip = 0;
    m_isIgnorable = false;
    if (m_depthBeyond > 0) {
        --m_depthBeyond;
    } else if (!m_outer.empty()) {
        const bool wasInstruction = m_state.destination == Instruction;
        // The last paragraph may have no mark; then the format at the end counts.
        if (m_outer.size() > 1) m_state = std::move(m_outer.back());
        m_outer.pop_back();
        if (wasInstruction && m_state.destination != Instruction) EndInstruction();
    }
}

// The rest of the field's group is its result and links to the address.
void RtfMachine::EndInstruction()
{
    const QString link = LinkOfField(std::exchange(m_instruction, {}));
    if (link.isEmpty() || !m_state.isField) return;
    m_state.character.link = static_cast<int>(m_tables.links.size());
    m_tables.links.append(link);
}

// Fallback characters are neither text nor code.
bool RtfMachine::SkipsOne()
{
    if (m_skip == 0) return false;
    --m_skip;
    m_code = {};
    return true;
}

void RtfMachine::DoWord(const RtfToken& word)
{
    m_skip = 0;
    const bool isIgnorable = std::exchange(m_isIgnorable, false);
    const bool isGroupStart = std::exchange(m_isGroupStart, false) || isIgnorable;
    if (m_state.destination == Skipped) return;
    const Word* const known = Find(word.bytes);
    if (isIgnorable && (!known || known->kind == Word::Plain)) Enter(Skipped);
    // A destination must begin its group. In the midst of text it is damage and must not swallow the rest.
    const bool isMisplaced = known && known->kind == Word::Destination && !isGroupStart;
    if (known && !isMisplaced && m_state.destination != Skipped) known->act(*this, known->argument, word);
}

void RtfMachine::DoSymbol(const RtfToken& symbol)
{
    const bool isGroupStart = std::exchange(m_isGroupStart, false);
    if (symbol.bytes[0] == '*') m_isIgnorable = isGroupStart;
    if (SkipsOne()) return;
    if (const Word* const known = Find(symbol.bytes)) known->act(*this, known->argument, symbol);
}

void RtfMachine::DoText(const RtfToken& text)
{
    m_isGroupStart = false;
    QByteArrayView bytes = text.bytes;
    if (m_skip > 0) {
        const qsizetype skipped = std::min<qsizetype>(m_skip, bytes.size());
        m_skip -= static_cast<int>(skipped);
        bytes = m_code = bytes.sliced(skipped);
    }
    if (bytes.isEmpty()) return;
    // In the codes, a line end separates the bytes before it from those behind it.
    if (m_wantsCodes && !m_bytes.isEmpty() && (HoldsSymbols() || !Gap().isEmpty())) FlushBytes();
    if (m_state.destination == FontTable) return PutFontNames(bytes, text.isAscii);
    if (m_state.destination == ColorTable) PutColors(bytes);
    PutBytes(bytes, text.isAscii);
}

void RtfMachine::DoHex(int byte)
{
    if (SkipsOne() || byte == 0) return;
    if (byte == '\r' && m_state.destination == Body) {
        FlushBytes();
        return EndParagraph(&RtfSink::EndParagraph);
    }
    const bool isAscii = byte < 0x80 && m_bytes.isEmpty() && !HoldsSymbols();
    if (isAscii) return PutCharacter(static_cast<char32_t>(byte));
    const char one = static_cast<char>(byte);
    PutBytes(QByteArrayView(&one, 1), false);
}

// In a symbol font ASCII bytes are signs, but stay letters if codes are wanted.
void RtfMachine::PutBytes(QByteArrayView bytes, bool areAscii)
{
    if (!TakesBytes()) return;
    if (areAscii && m_wantsCodes && !m_bytes.isEmpty()) {
        m_bytes += bytes.first(1); // may end a two-byte character
        FlushBytes();
        bytes = m_code = bytes.sliced(1);
    }
    if (areAscii && m_bytes.isEmpty() && (m_wantsCodes || !HoldsSymbols())) return PutAscii(QLatin1StringView(bytes));
    if (m_wantsCodes && m_bytes.isEmpty()) m_sink.Code(Gap());
    m_bytes += bytes;
}

void RtfMachine::PutAscii(QLatin1StringView text)
{
    if (m_state.destination == FontTable) m_tables.fonts.AppendName(text);
    if (m_state.destination == Instruction) m_instruction += text;
    if (TakesText()) m_sink.Ascii(text, std::exchange(m_code, {}), Character());
}

void RtfMachine::PutFontNames(QByteArrayView bytes, bool areAscii)
{
    const qsizetype end = bytes.indexOf(';');
    if (end < 0) return PutBytes(bytes, areAscii);
    if (end > 0) {
        const QByteArrayView rest = bytes.sliced(end);
        m_code.chop(rest.size());
        PutBytes(bytes.first(end), areAscii);
        m_code = rest;
    }
    FlushBytes();
    m_tables.fonts.EndName();
}

void RtfMachine::PutColors(QByteArrayView bytes)
{
    for (qsizetype i = bytes.count(';'); i > 0; --i)
        m_tables.colors.push_back(std::exchange(m_color, 0));
}

void RtfMachine::PutCharacter(char32_t character)
{
    if (m_wantsCodes && character < 0x80) {
        m_skip = 0; // keep its fallback
        return;
    }
    if (character == 0) return;
    m_code = {};
    Put(QStringView(QChar::fromUcs4(character)));
}

void RtfMachine::Put(QStringView text)
{
    if (m_state.destination == FontTable) m_tables.fonts.AppendName(text.toString());
    if (m_state.destination == Instruction) m_instruction += text;
    if (TakesText()) m_sink.Text(text, Character());
}

void RtfMachine::FlushBytes()
{
    if (m_bytes.isEmpty()) return;
    const QString text = Decoded();
    m_bytes.resize(0);
    Put(text);
}

QString RtfMachine::Decoded() const
{
    const RtfFonts& fonts = m_tables.fonts;
    const int font = Character().font;
    if (HoldsSymbols()) return DecodeSymbols(m_bytes, *fonts.SymbolsAt(font));
    const int codePage = m_state.destination == FontTable ? fonts.CodePageOfOpenEntry() : fonts.CodePageAt(font);
    return DecodeRtfBytes(m_bytes, codePage ? codePage : m_codePage, m_codePage);
}

QByteArrayView RtfMachine::Gap() const
{
    const auto isFiller = [](char byte) { return byte == '\r' || byte == '\n' || byte == '\0'; };
    return {m_code.begin(), std::ranges::find_if_not(m_code, isFiller)};
}

RtfCharacter RtfMachine::Character() const
{
    RtfCharacter character = m_state.character;
    if (character.font < 0) character.font = m_tables.fonts.PlaceOfDefault();
    return character;
}

bool RtfMachine::TakesText() const
{
    return m_wantsCodes || (m_state.destination == Body && !m_state.character.styles.testFlag(RtfStyle::Hidden));
}

bool RtfMachine::TakesBytes() const
{
    return TakesText() || m_state.destination == FontTable || m_state.destination == Instruction;
}

// If codes are wanted, hidden groups are read too.
void RtfMachine::Enter(Destination destination)
{
    const bool isRead = m_wantsCodes && destination == Skipped && m_state.destination != FontTable;
    if (!isRead) m_state.destination = destination;
}

void RtfMachine::EndParagraph(void (RtfSink::*end)(const RtfParagraph&, const RtfCharacter&))
{
    if (m_state.destination == Body) (m_sink.*end)(m_state.paragraph, Character());
}
