#include "platform/richtext/rtfwriter.h"

#include "platform/richtext/paragraphdirection.h"
#include "platform/richtext/rtffield.h"
#include "platform/richtext/rtfformat.h"
#include "platform/richtext/rtfoutput.h"
#include "platform/richtext/rtfpicture.h"
#include "platform/richtext/rtfsymbols.h"

#include <QFont>
#include <QHash>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <array>
#include <limits>
#include <utility>
#include <vector>

namespace {

class Writer
{
public:
    explicit Writer(const QTextDocument& document);

    void WriteBlock(const QTextBlock& block, int begin, int end);
    void EndParagraph();
    QByteArray Take();

private:
    // A format of the document, converted once for all of its runs.
    struct Format
    {
        RtfCharacter character;
        int color = 0; // indexes in the colour table
        int background = 0;
        const RtfSymbols* symbols = nullptr; // of the family
        QByteArray picture;                  // source of a picture, or empty
        QString link;                        // empty: no link
    };

    void WriteParagraph(const QTextBlock& block);
    void WriteFormats(const RtfParagraph& paragraph);
    void WriteLineSpacing(const RtfParagraph& paragraph);
    void WriteTabs(const QList<QTextOption::Tab>& tabs);
    void WriteCharacter(const Format& format);
    void WriteStyles(RtfStyles changed);
    void WriteRise(int rise);
    void WriteLink(const QString& link);
    bool Begins(const QTextBlock& block, const QString& link);
    void WriteRun(const Format& format, QStringView text);

    template <typename Piece> // a fragment or a block
    const Format& FormatAt(const Piece& piece);
    Format MakeFormat(const QTextCharFormat& format);
    int PlaceOfFamily(const QString& family);
    int PlaceOfColor(QRgb color);

    QFont m_font;
    RtfOutput m_body;
    QStringList m_families;
    QList<QRgb> m_colors;
    QHash<QString, int> m_familyPlaces;
    QHash<QRgb, int> m_colorPlaces;
    std::vector<Format> m_formats;
    std::vector<int> m_formatPlaces;           // index in m_formats + 1, by the document's format index
    RtfCharacter m_character{.halfPoints = 0}; // written last; no character has this size
    RtfParagraph m_paragraph;                  // written last
    int m_paragraphFormat = -1;                // document format index of m_paragraph
    QString m_link;                            // the open link
    RtfCharacter m_outerCharacter;             // formats behind the open link's group
    RtfParagraph m_outerParagraph;
};

Writer::Writer(const QTextDocument& document) : m_font(document.defaultFont())
{
    // Enough for most notes.
    m_body.Reserve(document.characterCount() * qsizetype{3} / 2 + 256);
}

QByteArray Writer::Take()
{
    WriteLink({});
    RtfOutput head;
    head.Raw("{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl");
    for (int i = 0; i < m_families.size(); ++i) {
        head.Raw("{");
        head.Word("f", i);
        head.Word("fnil");
        head.Word("fcharset", SymbolsOfFamily(m_families[i]) ? 2 : 0);
        head.Raw(" ");
        head.Name(m_families[i]);
        head.Raw(";}");
    }
    head.Raw("}\r\n{\\colortbl ;");
    for (const QRgb color : m_colors) {
        head.Word("red", qRed(color));
        head.Word("green", qGreen(color));
        head.Word("blue", qBlue(color));
        head.Raw(";");
    }
    head.Raw("}\r\n\\viewkind4\\uc1");
    head.Raw(m_body.Rtf());
    head.Raw("}\r\n");
    return head.Rtf().toByteArray();
}

void Writer::WriteBlock(const QTextBlock& block, int begin, int end)
{
    if (!m_link.isEmpty() && !Begins(block, m_link)) WriteLink({}); // before this paragraph's formats
    if (block.blockFormatIndex() != m_paragraphFormat || HasFixedDirection(block.blockFormat())) WriteParagraph(block);
    if (block.length() == 1) return WriteCharacter(FormatAt(block));
    const QString text = block.text();
    // Counted here, since a fragment's position() is slow.
    int position = block.position();
    const int start = position;
    for (auto at = block.begin(); !at.atEnd(); ++at) {
        const QTextFragment fragment = at.fragment();
        const int first = std::max(begin, position);
        position += fragment.length();
        const int last = std::min(end, position);
        if (first < last) WriteRun(FormatAt(fragment), QStringView(text).sliced(first - start, last - first));
    }
}

void Writer::EndParagraph()
{
    m_body.Word("par");
    m_body.Raw("\r\n");
}

void Writer::WriteParagraph(const QTextBlock& block)
{
    RtfParagraph paragraph = ToRtfParagraph(block.blockFormat());
    paragraph.direction = DirectionToStore(block);
    if (m_paragraphFormat < 0 || paragraph != m_paragraph) WriteFormats(paragraph);
    m_paragraph = paragraph;
    m_paragraphFormat = block.blockFormatIndex();
}

void Writer::WriteFormats(const RtfParagraph& paragraph)
{
    m_body.Word("pard");
    if (paragraph.direction != Qt::LayoutDirectionAuto) m_body.Word(RtfDirections[paragraph.direction].word);
    for (const auto& [word, alignment] : RtfAlignments)
        if (paragraph.alignment == alignment) m_body.Word(word);
    for (std::size_t i = 0; i < std::size(RtfMeasures); ++i)
        if (paragraph.measures[i]) m_body.Word(RtfMeasures[i].word, paragraph.measures[i]);
    WriteLineSpacing(paragraph);
    WriteTabs(paragraph.tabs);
}

void Writer::WriteLineSpacing(const RtfParagraph& paragraph)
{
    if (paragraph.lineSpacing == 0) return;
    m_body.Word("sl", paragraph.lineSpacing);
    m_body.Word("slmult", paragraph.isLineMultiple);
}

void Writer::WriteTabs(const QList<QTextOption::Tab>& tabs)
{
    for (const QTextOption::Tab& tab : tabs) {
        if (tab.type != QTextOption::LeftTab) m_body.Word(RtfTabKinds[tab.type].word);
        m_body.Word("tx", static_cast<int>(tab.position));
    }
}

void Writer::WriteCharacter(const Format& format)
{
    const RtfCharacter& character = format.character;
    if (character == m_character) return;
    const RtfCharacter old = std::exchange(m_character, character);
    WriteStyles(old.styles ^ character.styles);
    if (character.underline != old.underline) m_body.Word(RtfUnderlines[character.underline].word);
    if (character.vertical != old.vertical) m_body.Word(RtfVerticals[character.vertical].word);
    if (character.rise != old.rise) WriteRise(character.rise);
    if (character.color != old.color) m_body.Word("cf", format.color);
    if (character.background != old.background) m_body.Word("highlight", format.background);
    if (character.font != old.font) m_body.Word("f", character.font);
    if (character.halfPoints != old.halfPoints) m_body.Word("fs", character.halfPoints);
}

void Writer::WriteStyles(RtfStyles changed)
{
    for (const auto& [word, style] : RtfStyleNames) {
        if (!changed.testFlag(style)) continue;
        if (m_character.styles.testFlag(style))
            m_body.Word(word);
        else
            m_body.Word(word, 0);
    }
}

void Writer::WriteRise(int rise)
{
    m_body.Word(rise < 0 ? "dn" : "up", std::abs(rise));
}

void Writer::WriteLink(const QString& link)
{
    if (link == m_link) return;
    if (!m_link.isEmpty()) {
        m_body.Raw("}}");
        m_character = m_outerCharacter;
        if (m_paragraph != m_outerParagraph) WriteFormats(m_paragraph);
    }
    m_link = link;
    if (link.isEmpty()) return;
    m_outerCharacter = m_character;
    m_outerParagraph = m_paragraph;
    m_body.Raw("{\\field{\\*\\fldinst{");
    m_body.Text(FieldOfLink(link));
    m_body.Raw("}}{");
    m_body.Word("fldrslt");
}

bool Writer::Begins(const QTextBlock& block, const QString& link)
{
    const auto first = block.begin();
    return !first.atEnd() && FormatAt(first.fragment()).link == link;
}

void Writer::WriteRun(const Format& format, QStringView text)
{
    WriteLink(format.link);
    WriteCharacter(format);
    if (!format.picture.isEmpty()) {
        for (qsizetype i = 0; i < text.size(); ++i)
            m_body.Raw(format.picture);
    } else if (format.symbols) {
        m_body.Text(text, *format.symbols);
    } else {
        m_body.Text(text);
    }
}

template <typename Piece>
const Writer::Format& Writer::FormatAt(const Piece& piece)
{
    const auto at = static_cast<std::size_t>(piece.charFormatIndex());
    if (at >= m_formatPlaces.size()) m_formatPlaces.resize(at + 1);
    if (m_formatPlaces[at] == 0) {
        m_formats.push_back(MakeFormat(piece.charFormat()));
        m_formatPlaces[at] = static_cast<int>(m_formats.size());
    }
    return m_formats[m_formatPlaces[at] - 1];
}

Writer::Format Writer::MakeFormat(const QTextCharFormat& format)
{
    Format made;
    const QString family = FamilyOf(format, m_font);
    made.character = ToRtfCharacter(format, m_font);
    made.character.font = PlaceOfFamily(family);
    made.color = PlaceOfColor(made.character.color);
    made.background = PlaceOfColor(made.character.background);
    made.symbols = SymbolsOfFamily(family);
    // Text typed behind a picture keeps its properties, but is text.
    if (format.isImageFormat()) made.picture = format.property(PictureSourceProperty).toByteArray();
    made.link = format.anchorHref();
    if (made.link.size() > LongestLink) made.link.clear();
    return made;
}

int Writer::PlaceOfFamily(const QString& family)
{
    const auto known = m_familyPlaces.constFind(family);
    if (known != m_familyPlaces.cend()) return *known;
    m_families.append(family);
    return *m_familyPlaces.insert(family, static_cast<int>(m_families.size()) - 1);
}

int Writer::PlaceOfColor(QRgb color)
{
    if (color == 0) return 0;
    const auto known = m_colorPlaces.constFind(color);
    if (known != m_colorPlaces.cend()) return *known;
    m_colors.append(color);
    return *m_colorPlaces.insert(color, static_cast<int>(m_colors.size()));
}

// end counts the paragraph marks too.
QByteArray Write(const QTextDocument& document, int begin, int end)
{
    Writer writer(document);
    QTextBlock block = document.findBlock(begin);
    for (; block.isValid() && block.position() <= end; block = block.next()) {
        writer.WriteBlock(block, begin, end);
        if (block.position() + block.length() <= end) writer.EndParagraph();
    }
    return writer.Take();
}

} // namespace

QByteArray WriteRtf(const QTextDocument& document)
{
    return Write(document, 0, std::numeric_limits<int>::max());
}

QByteArray WriteRtf(const QTextCursor& selection)
{
    return Write(*selection.document(), selection.selectionStart(), selection.selectionEnd());
}
