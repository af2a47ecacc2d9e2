#include "platform/richtext/rtfreader.h"

#include "platform/richtext/linklook.h"
#include "platform/richtext/rtfmachine.h"
#include "platform/richtext/rtfpicture.h"

#include <QHash>
#include <QStringDecoder>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

// A document uses two noncharacters for the borders of frames. The line ends would begin new paragraphs.
constexpr QStringView Unholdable = u"\n\r\u2029\uFDD0\uFDD1";

bool IsHoldable(QChar character)
{
    return !character.isNull() && !Unholdable.contains(character);
}

bool IsLineEnd(QChar character)
{
    return character == u'\n' || character == u'\r' || character == QChar::ParagraphSeparator;
}

// The sink that writes into a document. It collects the runs of a paragraph, since the paragraph's format is known only
// at its end.
class RtfBuilder final : public RtfSink
{
public:
    // In a whole document the first paragraph's format comes from the text. An insertion into a paragraph with text
    // keeps that paragraph's format. The cursor ends behind the text.
    enum Purpose
    {
        WholeDocument,
        Insertion
    };
    RtfBuilder(QTextCursor& cursor, Purpose purpose, const RtfTables& tables);

    void Ascii(QLatin1StringView text, QByteArrayView code, const RtfCharacter& character) override;
    void Text(QStringView text, const RtfCharacter& character) override; // skips characters that a document cannot hold
    void Picture(const RtfPicture& picture, const RtfCharacter& character) override;
    void EndParagraph(const RtfParagraph& paragraph, const RtfCharacter& mark) override;
    void EndPage(const RtfParagraph& paragraph, const RtfCharacter& mark) override;
    void EndCell() override { ++m_cells; }
    void EndRow(const RtfParagraph& paragraph, const RtfCharacter& mark) override;
    void Finish(const RtfParagraph& paragraph, const RtfCharacter& mark) override;

private:
    struct Run
    {
        RtfCharacter character;
        qsizetype end;     // in the paragraph's text
        qsizetype picture; // index in m_pictures, or -1
    };

    void PutCells(const RtfCharacter& character);
    void ExtendRun(const RtfCharacter& character);
    void OpenBlock(const RtfParagraph& paragraph, const RtfCharacter& mark);
    void InsertRuns();
    const QTextCharFormat& FormatOf(const RtfCharacter& character);
    const QTextBlockFormat& FormatOf(const RtfParagraph& paragraph);

    QTextCursor& m_cursor; // not a copy: each cursor of a document slows insertions down
    Purpose m_purpose;
    const RtfTables& m_tables;
    QTextBlockFormat m_surroundings; // format of the paragraph that an insertion goes into
    bool m_keepsFirst = false;
    bool m_keepsLast = false;
    bool m_hasBlock = false;
    qsizetype m_cells = 0; // cell ends not yet written; the last of a row is not

    QString m_text;
    std::vector<Run> m_runs;
    std::vector<QTextImageFormat> m_pictures;
    QHash<RtfCharacter, QTextCharFormat> m_charFormats;
    RtfParagraph m_paragraph; // m_blockFormat is made of it
    QTextBlockFormat m_blockFormat;
};

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

// In a whole document the last mark begins no other paragraph.
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
    shown.link = -1; // a paragraph mark is no link
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
    if (character.link >= 0) format = LinkFormat(format, m_tables.links[character.link]);
    return *m_charFormats.insert(character, format);
}

const QTextBlockFormat& RtfBuilder::FormatOf(const RtfParagraph& paragraph)
{
    if (m_paragraph == paragraph) return m_blockFormat;
    m_paragraph = paragraph;
    m_blockFormat = ToBlockFormat(paragraph);
    return m_blockFormat;
}

void Read(QByteArrayView rtf, QTextCursor& cursor, RtfBuilder::Purpose purpose)
{
    if (!LooksLikeRtf(rtf)) return cursor.insertText(PlainNote(rtf));
    RtfTables tables;
    RtfBuilder builder(cursor, purpose, tables);
    RtfMachine(rtf, tables, builder).Run();
}

} // namespace

void ReadRtf(QByteArrayView rtf, QTextDocument& document)
{
    const bool isUndoEnabled = document.isUndoRedoEnabled();
    document.setUndoRedoEnabled(false);
    document.clear();
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    Read(rtf, cursor, RtfBuilder::WholeDocument);
    cursor.endEditBlock();
    document.setUndoRedoEnabled(isUndoEnabled);
    document.setModified(false);
}

void InsertRtf(QByteArrayView rtf, QTextCursor& cursor)
{
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    Read(rtf, cursor, RtfBuilder::Insertion);
    cursor.endEditBlock();
}

bool LooksLikeRtf(QByteArrayView text)
{
    const auto isFiller = [](char byte) { return byte == '\0' || byte == ' ' || byte == '\r' || byte == '\n'; };
    while (!text.isEmpty() && isFiller(text.front()))
        text = text.sliced(1);
    return text.startsWith("{\\rtf") || text.startsWith("{\\urtf");
}

QString PlainNote(QByteArrayView bytes)
{
    QByteArray kept = bytes.toByteArray();
    kept.removeIf([](char byte) { return byte == 0; });
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString text = decoder.decode(kept);
    if (decoder.hasError()) text = DecodeRtfBytes(kept, AnsiCodePage);
    text.replace(u"\r\n"_s, u"\n"_s);
    return text;
}
