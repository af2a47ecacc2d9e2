#include "platform/richtext/rtfinterpreter.h"

#include "platform/richtext/rtffield.h"
#include "platform/richtext/rtfpicture.h"
#include "platform/richtext/rtfreading.h"
#include "platform/richtext/rtfsymbols.h"

#include <QTextDocument>

#include <algorithm>
#include <utility>

RtfInterpreter::RtfInterpreter(QByteArrayView rtf, QTextCursor& cursor, RtfBuilder::Purpose purpose)
    : m_tokenizer(rtf),
      m_builder(cursor, purpose,
                {[this](int place) { return m_fonts.FamilyAt(place); }, [this](int place) { return m_links[place]; }}),
      m_document(cursor.document())
{
}

void RtfInterpreter::Run()
{
    for (RtfToken token = m_tokenizer.Next(); token.kind != RtfToken::End; token = m_tokenizer.Next())
        Interpret(token);
    FlushBytes();
    m_builder.Finish(m_state.paragraph, Character());
}

void RtfInterpreter::Interpret(const RtfToken& token)
{
    switch (token.kind) {
    case RtfToken::Text:
        DoText(token);
        return;
    case RtfToken::Hex:
        DoHex(token.parameter);
        return;
    default:
        FlushBytes();
    }
    switch (token.kind) {
    case RtfToken::Open:
        OpenGroup();
        break;
    case RtfToken::Close:
        CloseGroup();
        break;
    case RtfToken::Word:
        DoWord(token);
        break;
    case RtfToken::Symbol:
        DoSymbol(token.bytes[0]);
        break;
    default:
        break;
    }
}

void RtfInterpreter::OpenGroup()
{
    m_skip = 0;
    m_isIgnorable = false;
    m_isGroupStart = true;
    if (m_outer.size() < RtfMaximumDepth)
        m_outer.push_back(m_state);
    else
        ++m_depthBeyond;
}

void RtfInterpreter::CloseGroup()
{
    m_skip = 0;
    m_isIgnorable = false;
    if (m_depthBeyond > 0) {
        --m_depthBeyond;
    } else if (!m_outer.empty()) {
        const bool wasInstruction = m_state.destination == Instruction;
        // The last paragraph may have no mark, and its format then is the one that holds at the end.
        if (m_outer.size() > 1) m_state = std::move(m_outer.back());
        m_outer.pop_back();
        if (wasInstruction && m_state.destination != Instruction) EndInstruction();
    }
}

// What follows in the field's group is the result, and leads where the instruction says.
void RtfInterpreter::EndInstruction()
{
    const QString link = LinkOfField(std::exchange(m_instruction, {}));
    if (link.isEmpty() || !m_state.isField) return;
    m_state.character.link = static_cast<int>(m_links.size());
    m_links.append(link);
}

void RtfInterpreter::DoWord(const RtfToken& word)
{
    m_skip = 0;
    const bool isIgnorable = std::exchange(m_isIgnorable, false);
    const bool isGroupStart = std::exchange(m_isGroupStart, false) || isIgnorable;
    if (m_state.destination == Skipped) return;
    const Word* const known = Find(word.bytes);
    if (isIgnorable && !(known && known->IsDestination())) m_state.destination = Skipped;
    // A destination has a group of its own; in the midst of text its word is a damaged one and must not swallow the
    // rest.
    const bool isMisplaced = known && known->handler == &RtfInterpreter::EnterDestination && !isGroupStart;
    if (known && !isMisplaced && m_state.destination != Skipped) (this->*known->handler)(known->argument, word);
}

void RtfInterpreter::DoSymbol(char symbol)
{
    const bool isGroupStart = std::exchange(m_isGroupStart, false);
    struct Meaning
    {
        char symbol;
        Handler handler;
        int argument;
    };
    constexpr Meaning Meanings[] = {
        {'\t', &RtfInterpreter::PutCharacter, '\t'},
        {'\r', &RtfInterpreter::EndParagraph, 0},
        {'\n', &RtfInterpreter::EndParagraph, 0},
    };
    if (symbol == '*') m_isIgnorable = isGroupStart;
    if (m_skip > 0) {
        --m_skip;
        return;
    }
    if (const char16_t sign = RtfSignOf(symbol)) return PutCharacter(sign, {});
    const auto known = std::ranges::find(Meanings, symbol, &Meaning::symbol);
    if (known != std::end(Meanings)) (this->*known->handler)(known->argument, {});
}

void RtfInterpreter::DoText(const RtfToken& text)
{
    m_isGroupStart = false;
    QByteArrayView bytes = text.bytes;
    if (m_skip > 0) {
        const qsizetype skipped = std::min<qsizetype>(m_skip, bytes.size());
        m_skip -= static_cast<int>(skipped);
        bytes = bytes.sliced(skipped);
    }
    if (bytes.isEmpty()) return;
    switch (m_state.destination) {
    case FontTable:
        PutFontNames(bytes);
        break;
    case ColorTable:
        PutColors(bytes);
        break;
    case Instruction:
        m_bytes += bytes;
        break;
    case Body:
        if (TakesText()) PutBytes(bytes, text.isAscii);
        break;
    default:
        break;
    }
}

void RtfInterpreter::PutBytes(QByteArrayView bytes, bool areAscii)
{
    const RtfCharacter character = Character();
    if (!areAscii || !m_bytes.isEmpty() || m_fonts.HoldsSymbolsAt(character.font)) {
        m_bytes += bytes;
    } else {
        FlushCells();
        m_builder.Append(QLatin1StringView(bytes), character);
    }
}

void RtfInterpreter::DoHex(int byte)
{
    if (m_skip > 0) {
        --m_skip;
    } else if (byte == '\r' && m_state.destination == Body) {
        FlushBytes();
        EndParagraph(0, {});
    } else if (byte != 0 && (m_state.destination == FontTable || m_state.destination == Instruction || TakesText())) {
        m_bytes += static_cast<char>(byte);
    }
}

void RtfInterpreter::FlushBytes()
{
    if (m_bytes.isEmpty()) return;
    const QString text = Decoded();
    m_bytes.resize(0);
    Put(text);
}

QString RtfInterpreter::Decoded() const
{
    const int font = Character().font;
    if (m_state.destination == Body && m_fonts.HoldsSymbolsAt(font))
        return DecodeSymbols(m_bytes, *m_fonts.SymbolsAt(font));
    const int codePage = m_state.destination == FontTable ? m_fonts.CodePageOfOpenEntry() : m_fonts.CodePageAt(font);
    return DecodeRtfBytes(m_bytes, codePage ? codePage : m_codePage, m_codePage);
}

void RtfInterpreter::Put(QStringView text)
{
    if (m_state.destination == FontTable) m_fonts.AppendName(text.toString());
    if (m_state.destination == Instruction) m_instruction += text;
    if (!TakesText()) return;
    FlushCells();
    m_builder.Append(text, Character());
}

void RtfInterpreter::FlushCells()
{
    for (; m_cells > 0; --m_cells)
        m_builder.Append("\t"_L1, Character());
}

void RtfInterpreter::PutFontNames(QByteArrayView bytes)
{
    const qsizetype end = bytes.indexOf(';');
    m_bytes += end < 0 ? bytes : bytes.first(end);
    if (end < 0) return;
    FlushBytes();
    m_fonts.EndName();
}

void RtfInterpreter::PutColors(QByteArrayView bytes)
{
    for (qsizetype i = bytes.count(';'); i > 0; --i)
        m_colors.push_back(std::exchange(m_color, 0));
}

RtfCharacter RtfInterpreter::Character() const
{
    RtfCharacter character = m_state.character;
    if (character.font < 0) character.font = m_fonts.PlaceOfDefault();
    return character;
}

bool RtfInterpreter::TakesText() const
{
    return m_state.destination == Body && !m_state.character.styles.testFlag(RtfStyle::Hidden);
}
