#include "platform/richtext/htmlparagraphs.h"

#include "platform/desktop/twips.h"
#include "platform/richtext/rtfformat.h"

#include <QFontMetricsF>
#include <QTextBlock>
#include <QTextList>
#include <QTextTable>

#include <algorithm>

namespace {

constexpr int Level = 360; // twips that a list is further in than the one around it

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

// In pixels; 0 where no cell is of this column alone.
double WidthOfColumn(const QTextTable& table, int column)
{
    constexpr int MostRows = 100; // looked at, since each word is measured
    constexpr double Widest = 240;
    double width = 0;
    for (int row = 0; row < std::min(table.rows(), MostRows); ++row) {
        const QTextTableCell cell = table.cellAt(row, column);
        if (cell.isValid() && cell.columnSpan() == 1) width = std::max(width, WidthOf(cell));
    }
    return std::min(width, Widest);
}

} // namespace

bool IsBesideTable(const QTextBlock& block)
{
    return block.length() == 1 && !TableAt(block) && (TableAt(block.previous()) || TableAt(block.next()));
}

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
