#include "platform/richtext/rtfbuilder.h"

#include "platform/richtext/rtfpicture.h"

#include <QTextBlock>

#include <algorithm>
#include <utility>

namespace {

// A document keeps two noncharacters for the borders of its frames, and ends paragraphs at the others but the NUL.
constexpr QStringView Unholdable = u"\n\r\u2029\uFDD0\uFDD1";

bool IsHoldable(QChar character)
{
    return !character.isNull() && !Unholdable.contains(character);
}

bool IsLineEnd(QChar character)
{
    return character == u'\n' || character == u'\r' || character == QChar::ParagraphSeparator;
}

} // namespace

RtfBuilder::RtfBuilder(QTextCursor& cursor, Purpose purpose, const RtfTables& tables)
    : m_cursor(cursor), m_purpose(purpose), m_tables(tables), m_surroundings(cursor.blockFormat()),
      m_keepsFirst(purpose == Insertion && cursor.block().length() > 1),
      m_keepsLast(purpose == Insertion && !cursor.atBlockEnd())
{
}

void RtfBuilder::Ascii(QLatin1StringView text, QByteArrayView, const RtfCharacter& character)
{
    PutCells(character);
    m_text += text;
    ExtendRun(character);
}

void RtfBuilder::Text(QStringView text, const RtfCharacter& character)
{
    PutCells(character);
    if (std::ranges::all_of(text, IsHoldable)) {
        m_text += text;
    } else {
        for (const QChar one : text) {
            if (IsHoldable(one)) m_text += one;
            if (IsLineEnd(one)) m_text += QChar(QChar::LineSeparator);
        }
    }
    ExtendRun(character);
}

void RtfBuilder::Picture(const RtfPicture& picture, const RtfCharacter& character)
{
    PutCells(character);
    m_text += QChar(QChar::ObjectReplacementCharacter);
    m_runs.push_back({character, m_text.size(), static_cast<qsizetype>(m_pictures.size())});
    m_pictures.push_back(ToImageFormat(picture, *m_cursor.document()));
}

void RtfBuilder::PutCells(const RtfCharacter& character)
{
    if (m_cells == 0) return;
    m_text += QString(std::exchange(m_cells, 0), u'\t');
    ExtendRun(character);
}

void RtfBuilder::ExtendRun(const RtfCharacter& character)
{
    if (!m_runs.empty() && m_runs.back().picture < 0 && m_runs.back().character == character)
        m_runs.back().end = m_text.size();
    else
        m_runs.push_back({character, m_text.size(), -1});
}

void RtfBuilder::EndParagraph(const RtfParagraph& paragraph, const RtfCharacter& mark)
{
    PutCells(mark);
    OpenBlock(paragraph, mark);
    InsertRuns();
}

void RtfBuilder::EndPage(const RtfParagraph& paragraph, const RtfCharacter& mark)
{
    if (!m_text.isEmpty()) EndParagraph(paragraph, mark);
}

void RtfBuilder::EndRow(const RtfParagraph& paragraph, const RtfCharacter& mark)
{
    m_cells = 0;
    EndParagraph(paragraph, mark);
}

// The last mark of a whole document is no beginning of another paragraph.
void RtfBuilder::Finish(const RtfParagraph& paragraph, const RtfCharacter& mark)
{
    m_cells = 0;
    if (m_purpose == WholeDocument && m_hasBlock && m_text.isEmpty()) return;
    if (m_purpose == Insertion && m_hasBlock && m_keepsLast) {
        m_cursor.insertBlock(m_surroundings, FormatOf(mark));
        InsertRuns();
        return;
    }
    EndParagraph(paragraph, mark);
}

void RtfBuilder::OpenBlock(const RtfParagraph& paragraph, const RtfCharacter& mark)
{
    RtfCharacter shown = mark;
    shown.link = -1; // an end of a paragraph leads nowhere
    if (std::exchange(m_hasBlock, true)) {
        m_cursor.insertBlock(FormatOf(paragraph), FormatOf(shown));
    } else if (!m_keepsFirst) {
        m_cursor.setBlockFormat(FormatOf(paragraph));
        m_cursor.setBlockCharFormat(FormatOf(shown));
    }
}

void RtfBuilder::InsertRuns()
{
    qsizetype begin = 0;
    for (const Run& run : m_runs) {
        const QString text = QString::fromRawData(m_text.constData() + begin, run.end - begin);
        begin = run.end;
        if (run.picture < 0) {
            m_cursor.insertText(text, FormatOf(run.character));
            continue;
        }
        QTextImageFormat format = m_pictures[run.picture];
        const QMap<int, QVariant> properties = FormatOf(run.character).properties();
        for (auto property = properties.cbegin(); property != properties.cend(); ++property)
            format.setProperty(property.key(), property.value());
        m_cursor.insertImage(format);
    }
    m_text.resize(0);
    m_runs.clear();
    m_pictures.clear();
}

const QTextCharFormat& RtfBuilder::FormatOf(const RtfCharacter& character)
{
    const auto known = m_charFormats.constFind(character);
    if (known != m_charFormats.cend()) return *known;
    QTextCharFormat format = ToCharFormat(character, m_tables.fonts.FamilyAt(character.font));
    if (character.link >= 0) {
        format.setAnchor(true);
        format.setAnchorHref(m_tables.links[character.link]);
    }
    return *m_charFormats.insert(character, format);
}

const QTextBlockFormat& RtfBuilder::FormatOf(const RtfParagraph& paragraph)
{
    if (m_paragraph == paragraph) return m_blockFormat;
    m_paragraph = paragraph;
    m_blockFormat = ToBlockFormat(paragraph);
    return m_blockFormat;
}
