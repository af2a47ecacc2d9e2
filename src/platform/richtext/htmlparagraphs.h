// How the paragraphs of HTML stand in a note, where lists and tables are text. Knows only QtGui.
#pragma once

#include <QHash>
#include <QTextBlockFormat>
#include <QTextOption>

class QTextBlock;
class QTextTable;

// The empty paragraph that a document has before and behind every table.
bool IsBesideTable(const QTextBlock& block);

class HtmlParagraphs
{
public:
    // An item of a list is indented by its level and hangs at its mark; a row of a table has a tab stop a column.
    QTextBlockFormat FormatOf(const QTextBlock& block);

private:
    using Tabs = QList<QTextOption::Tab>; // positions in twips

    const Tabs& ColumnsOf(const QTextTable& table);

    QHash<const QTextTable*, Tabs> m_columns;
};
