// What the control words do.
#include "platform/richtext/rtfinterpreter.h"
#include "platform/richtext/rtfpicture.h"
#include "platform/richtext/rtfreading.h"
#include "platform/richtext/rtfsymbols.h"

#include <QTextDocument>

#include <algorithm>

void RtfInterpreter::EnterDestination(int destination, const RtfToken&)
{
    m_state.destination = static_cast<Destination>(destination);
}

void RtfInterpreter::Picture(int, const RtfToken& word)
{
    const RtfPicture picture = ReadRtfPicture(m_tokenizer, word.bytes);
    if (!picture.hasData || m_state.character.styles & RtfStyle::Hidden) return;
    FlushCells();
    m_builder.AppendPicture(ToImageFormat(picture, *m_document), Character());
}

// An object that shows itself by a picture is kept whole, for its data; of another there is only the text that it
// shows. Objects within it hold no picture either, so they are not looked through again.
void RtfInterpreter::Object(int, const RtfToken& word)
{
    if (m_state.isInObject) return;
    m_state.isInObject = true;
    RtfTokenizer ahead = m_tokenizer;
    const RtfPicture picture = ReadRtfPicture(ahead, word.bytes);
    if (!picture.hasData || !TakesText()) return;
    m_tokenizer = ahead;
    FlushCells();
    m_builder.AppendPicture(ToImageFormat(picture, *m_document), Character());
}

void RtfInterpreter::BeginField(int, const RtfToken&)
{
    m_state.isField = true;
}

char16_t RtfInterpreter::CharacterOf(QByteArrayView name)
{
    const Word* const word = Find(name);
    return word && word->handler == &RtfInterpreter::PutCharacter ? static_cast<char16_t>(word->argument) : 0;
}

void RtfInterpreter::PutCharacter(int character, const RtfToken&)
{
    const QChar text(static_cast<char16_t>(character));
    Put(QStringView(&text, 1));
}

void RtfInterpreter::PutUnicode(int, const RtfToken& word)
{
    m_skip = m_state.fallbackLength;
    if (word.parameter == 0) return;
    // A signed 16-bit number by rights; some write it unsigned, and some a whole code point.
    const auto codePoint = static_cast<char32_t>(word.parameter);
    const bool isWhole = word.parameter > 0xFFFF && codePoint <= QChar::LastValidCodePoint;
    if (isWhole)
        Put(QString::fromUcs4(&codePoint, 1));
    else
        PutUnit(static_cast<char16_t>(word.parameter));
    m_skip = m_state.fallbackLength;
}

void RtfInterpreter::PutUnit(char16_t unit)
{
    const bool isSymbol = m_state.destination == Body && IsPrivateSymbol(unit);
    const RtfSymbols* const symbols = isSymbol ? m_fonts.SymbolsAt(Character().font) : nullptr;
    if (!symbols) return Put(QStringView(&unit, 1));
    const char byte = static_cast<char>(unit);
    Put(DecodeSymbols(QByteArrayView(&byte, 1), *symbols));
}

void RtfInterpreter::SetFallbackLength(int, const RtfToken& word)
{
    m_state.fallbackLength = std::clamp(word.ParameterOr(1), 0, RtfLongestFallback);
}

void RtfInterpreter::EndParagraph(int, const RtfToken&)
{
    if (m_state.destination != Body) return;
    FlushCells();
    m_builder.EndParagraph(m_state.paragraph, Character());
}

void RtfInterpreter::EndPage(int, const RtfToken&)
{
    if (m_state.destination == Body && !m_builder.IsParagraphEmpty()) EndParagraph(0, {});
}

void RtfInterpreter::EndCell(int, const RtfToken&)
{
    if (m_state.destination == Body) ++m_cells;
}

void RtfInterpreter::EndRow(int, const RtfToken&)
{
    if (m_state.destination != Body) return;
    m_cells = 0;
    EndParagraph(0, {});
}

void RtfInterpreter::SetCodePage(int codePage, const RtfToken& word)
{
    m_codePage = codePage ? codePage : word.parameter;
}

void RtfInterpreter::SetDefaultFont(int, const RtfToken& word)
{
    m_fonts.SetDefault(word.parameter);
}

void RtfInterpreter::SetFontCharset(int, const RtfToken& word)
{
    if (m_state.destination == FontTable) m_fonts.SetCharset(word.parameter);
}

void RtfInterpreter::SetFontCodePage(int, const RtfToken& word)
{
    if (m_state.destination == FontTable) m_fonts.SetCodePage(word.parameter);
}

void RtfInterpreter::SetColorPart(int shift, const RtfToken& word)
{
    constexpr QRgb IsGiven = 0xFF000000;
    const QRgb part = static_cast<QRgb>(std::clamp(word.parameter, 0, 255));
    m_color = (m_color & ~(QRgb{255} << shift)) | (part << shift) | IsGiven;
}

QRgb RtfInterpreter::ColorAt(int number) const
{
    return number >= 0 && static_cast<std::size_t>(number) < m_colors.size() ? m_colors[number] : 0;
}

void RtfInterpreter::SetPlain(int, const RtfToken&)
{
    m_state.character = {.link = m_state.character.link};
}

void RtfInterpreter::SetFont(int, const RtfToken& word)
{
    if (m_state.destination == FontTable)
        m_fonts.Begin(word.parameter);
    else
        m_state.character.font = m_fonts.PlaceOf(word.parameter);
}

void RtfInterpreter::SetFontSize(int, const RtfToken& word)
{
    const int size = word.parameter > 0 ? word.parameter : RtfCharacter::DefaultHalfPoints;
    m_state.character.halfPoints = std::min(size, RtfCharacter::MaximumHalfPoints);
}

void RtfInterpreter::SetStyle(int style, const RtfToken& word)
{
    m_state.character.styles.setFlag(static_cast<RtfStyle>(style), word.ParameterOr(1) != 0);
}

void RtfInterpreter::SetUnderline(int place, const RtfToken& word)
{
    m_state.character.underline = static_cast<quint8>(word.ParameterOr(1) ? place : QTextCharFormat::NoUnderline);
}

void RtfInterpreter::SetVertical(int alignment, const RtfToken& word)
{
    m_state.character.vertical = static_cast<quint8>(word.ParameterOr(1) ? alignment : QTextCharFormat::AlignNormal);
}

void RtfInterpreter::SetRise(int sign, const RtfToken& word)
{
    constexpr int Usual = 6;
    const int rise =
        std::clamp(word.ParameterOr(Usual), -RtfCharacter::MaximumHalfPoints, RtfCharacter::MaximumHalfPoints);
    m_state.character.rise = sign * rise;
}

void RtfInterpreter::SetColor(int, const RtfToken& word)
{
    m_state.character.color = ColorAt(word.parameter);
}

void RtfInterpreter::SetBackground(int, const RtfToken& word)
{
    m_state.character.background = ColorAt(word.parameter);
}

void RtfInterpreter::SetParagraphPlain(int, const RtfToken&)
{
    m_state.paragraph = {};
    m_state.tabType = QTextOption::LeftTab;
}

void RtfInterpreter::SetAlignment(int alignment, const RtfToken&)
{
    m_state.paragraph.alignment = Qt::Alignment::fromInt(alignment);
}

void RtfInterpreter::SetDirection(int isRightToLeft, const RtfToken&)
{
    m_state.paragraph.isRightToLeft = isRightToLeft;
}

void RtfInterpreter::SetMeasure(int measure, const RtfToken& word)
{
    const auto [least, most] = RtfParagraph::Limits[measure];
    m_state.paragraph.measures[measure] = std::clamp(word.parameter, least, most);
}

void RtfInterpreter::SetLineSpacing(int, const RtfToken& word)
{
    m_state.paragraph.lineSpacing = std::clamp(word.parameter, -RtfParagraph::Furthest, RtfParagraph::Furthest);
}

void RtfInterpreter::SetLineMultiple(int, const RtfToken& word)
{
    m_state.paragraph.isLineMultiple = word.ParameterOr(1) != 0;
}

void RtfInterpreter::SetTabType(int type, const RtfToken&)
{
    m_state.tabType = static_cast<QTextOption::TabType>(type);
}

void RtfInterpreter::AddTab(int, const RtfToken& word)
{
    const QTextOption::TabType type = std::exchange(m_state.tabType, QTextOption::LeftTab);
    if (m_state.paragraph.tabs.size() >= RtfParagraph::MaximumTabs) return;
    const int position = std::clamp(word.parameter, 0, RtfParagraph::Furthest);
    m_state.paragraph.tabs.append(QTextOption::Tab(position, type));
}
