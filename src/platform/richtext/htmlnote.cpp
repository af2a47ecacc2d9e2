#include "platform/richtext/htmlnote.h"

#include "platform/desktop/twips.h"
#include "platform/look/paper.h"
#include "platform/richtext/htmlimages.h"
#include "platform/richtext/linklook.h"
#include "platform/richtext/pastebounds.h"
#include "platform/richtext/rtfformat.h"
#include "platform/richtext/rtfpicture.h"
#include "platform/richtext/rtfreader.h"
#include "platform/richtext/rtfwriter.h"
#include "platform/richtext/selectionformat.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QHash>
#include <QPalette>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>

#include <algorithm>
#include <utility>

namespace {

// Loads none of the files and style sheets that HTML refers to.
class ClosedDocument : public QTextDocument
{
protected:
    QVariant loadResource(int, const QUrl&) override { return {}; }
};

constexpr int Level = 360; // twips that each list level is indented

const QTextTable* TableAt(const QTextBlock& block)
{
    return block.isValid() ? QTextCursor(block).currentTable() : nullptr;
}

double WidthOf(const QTextBlock& block)
{
    double width = 0;
    for (auto i = block.begin(); !i.atEnd(); ++i)
        width += QFontMetricsF(i.fragment().charFormat().font()).horizontalAdvance(i.fragment().text());
    return width;
}

double WidthOf(const QTextTableCell& cell)
{
    double width = 0;
    QTextBlock block = cell.firstCursorPosition().block();
    for (; block.isValid() && block.position() <= cell.lastPosition(); block = block.next())
        width = std::max(width, WidthOf(block));
    return width;
}

// In pixels; 0 if every cell of the column spans others too.
double WidthOfColumn(const QTextTable& table, int column)
{
    constexpr int MostRows = 100; // measured at most, word by word
    constexpr double Widest = 240;
    double width = 0;
    for (int row = 0; row < std::min(table.rows(), MostRows); ++row) {
        const QTextTableCell cell = table.cellAt(row, column);
        if (cell.isValid() && cell.columnSpan() == 1) width = std::max(width, WidthOf(cell));
    }
    return std::min(width, Widest);
}

// A document has an empty paragraph before and behind every table.
bool IsBesideTable(const QTextBlock& block)
{
    return block.length() == 1 && !TableAt(block) && (TableAt(block.previous()) || TableAt(block.next()));
}

// Paragraph formats of HTML in a note, where lists and tables are text.
class HtmlParagraphs
{
public:
    // List items are indented by level, with a hanging mark. Table rows have a tab stop per column.
    QTextBlockFormat FormatOf(const QTextBlock& block);

private:
    using Tabs = QList<QTextOption::Tab>; // in twips

    const Tabs& ColumnsOf(const QTextTable& table);

    QHash<const QTextTable*, Tabs> m_columns;
};

const HtmlParagraphs::Tabs& HtmlParagraphs::ColumnsOf(const QTextTable& table)
{
    constexpr double Gap = 8;
    const auto known = m_columns.constFind(&table);
    if (known != m_columns.cend()) return *known;
    Tabs tabs;
    double position = 0;
    for (int column = 0; column + 1 < std::min(table.columns(), RtfParagraph::MaximumTabs); ++column) {
        position += WidthOfColumn(table, column) + Gap;
        tabs.append(QTextOption::Tab(qRound(position * TwipsPerPixel), QTextOption::LeftTab));
    }
    return *m_columns.insert(&table, tabs);
}

QTextBlockFormat HtmlParagraphs::FormatOf(const QTextBlock& block)
{
    RtfParagraph paragraph = ToRtfParagraph(block.blockFormat());
    const QTextTable* const table = TableAt(block);
    const QTextList* const list = block.textList();
    if (table || list) paragraph.measures[RtfParagraph::Before] = paragraph.measures[RtfParagraph::After] = 0;
    if (table) {
        paragraph.alignment = {};
        paragraph.tabs = ColumnsOf(*table);
        return ToBlockFormat(paragraph);
    }
    const int level = block.blockFormat().indent() + (list ? list->format().indent() : 0);
    int& left = paragraph.measures[RtfParagraph::Left];
    left = std::clamp(left + level * Level, 0, RtfParagraph::Furthest);
    if (list) paragraph.measures[RtfParagraph::First] = -std::min(left, Level);
    return ToBlockFormat(paragraph);
}

QString MarkOf(const QTextBlock& block)
{
    const QTextList* list = block.textList();
    if (!list) return {};
    const bool isBullet = list->format().style() >= QTextListFormat::ListSquare;
    return (isBullet ? u"\u2022"_s : list->itemText(block)) + u'\t';
}

// The distance in columns to the next paragraph, if it is in another cell of the same row; else 0.
int ColumnsToNext(const QTextBlock& block)
{
    const QTextTable* table = TableAt(block);
    if (!table || TableAt(block.next()) != table) return 0;
    const QTextTableCell one = table->cellAt(block.position()), other = table->cellAt(block.next().position());
    return one.row() == other.row() ? std::clamp(other.column() - one.column(), 0, RtfParagraph::MaximumTabs) : 0;
}

// The format without its list or table, for another document.
template <typename Format>
Format Freed(Format format)
{
    format.clearProperty(QTextFormat::ObjectIndex);
    if (!format.isImageFormat()) format.clearProperty(QTextFormat::ObjectType);
    return format;
}

// A reader of HTML gives links a look. Ours is not stored, and that of the toolkit has the desktop's colour.
QTextCharFormat WithoutUsualLook(QTextCharFormat format)
{
    if (!format.isAnchor()) return format;
    const QColor ink = format.foreground().color();
    if (ink == QGuiApplication::palette().color(QPalette::Link) || ink == paper::Accent) format.clearForeground();
    if (format.underlineStyle() == QTextCharFormat::SingleUnderline)
        format.setUnderlineStyle(QTextCharFormat::NoUnderline);
    return format;
}

// Appends the paragraph's content.
void Append(const QTextBlock& block, QTextCursor& out)
{
    const QTextCharFormat mark = block.begin().atEnd() ? block.charFormat() : block.begin().fragment().charFormat();
    out.insertText(MarkOf(block), WithoutImage(Freed(WithoutLink(WithoutUsualLook(mark)))));
    for (auto i = block.begin(); !i.atEnd(); ++i)
        out.insertText(i.fragment().text(), Freed(WithoutUsualLook(i.fragment().charFormat())));
}

// Copies the document with its lists and tables as text.
void Flatten(const QTextDocument& document, QTextDocument& flat)
{
    HtmlParagraphs paragraphs;
    QTextCursor out(&flat);
    out.beginEditBlock();
    bool isFirst = true;
    int columns = 0; // from the previous paragraph
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (IsBesideTable(block)) continue;
        const bool isNext = !std::exchange(isFirst, false);
        if (isNext && columns == 0) out.insertBlock(paragraphs.FormatOf(block), Freed(block.charFormat()));
        if (!isNext) out.setBlockFormat(paragraphs.FormatOf(block));
        Append(block, out);
        columns = ColumnsToNext(block);
        out.insertText(QString(columns, u'\t'));
    }
    out.endEditBlock();
}

bool IsPictures(const QTextDocument& document)
{
    const QString text = document.toPlainText();
    return std::ranges::all_of(text,
                               [](QChar one) { return one.isSpace() || one == QChar::ObjectReplacementCharacter; });
}

} // namespace

HtmlNote ReadHtml(const QString& html, const QTextCharFormat& initial, const PictureFit& fit)
{
    const QFont font = initial.font();
    if (!IsHtmlWithinBounds(html)) return {};
    ClosedDocument document;
    document.setUndoRedoEnabled(false);
    document.setDefaultFont(font);
    document.setHtml(html);
    AdoptImages(document, 0, document.characterCount() - 1, fit);
    if (document.isEmpty()) return {};
    SpellOutFormats(document, 0, document.characterCount() - 1, initial);
    QTextDocument flat;
    flat.setUndoRedoEnabled(false);
    flat.setDefaultFont(font);
    Flatten(document, flat);
    return {WriteRtf(flat), IsPictures(flat)};
}

QString WriteHtml(const QByteArray& rtf, const QFont& font)
{
    QTextDocument document;
    document.setUndoRedoEnabled(false);
    document.setDefaultFont(font);
    ReadRtf(rtf, document);
    EmbedPictures(document);
    return document.toHtml();
}
