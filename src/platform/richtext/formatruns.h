// Changes of the formats of a text. Knows only QtGui.
#pragma once

#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>

#include <algorithm>

// Calls visit(cursor, format) with each run of the same format selected, cut to the range. It may change the formats.
template <typename Visit>
void VisitRuns(const QTextCursor& range, Visit visit)
{
    QList<QTextLayout::FormatRange> runs; // collected first, since changing formats invalidates the iterator
    const int begin = range.selectionStart(), end = range.selectionEnd();
    for (QTextBlock block = range.document()->findBlock(begin); block.isValid() && block.position() < end;
         block = block.next())
        for (auto i = block.begin(); !i.atEnd(); ++i) {
            if (i.fragment().position() >= end) break;
            const int from = std::max(i.fragment().position(), begin);
            const int to = std::min(i.fragment().position() + i.fragment().length(), end);
            if (from < to) runs.append({from, to - from, i.fragment().charFormat()});
        }
    QTextCursor run(range);
    for (const auto& [position, length, format] : runs) {
        run.setPosition(position);
        run.setPosition(position + length, QTextCursor::KeepAnchor);
        visit(run, format);
    }
}
