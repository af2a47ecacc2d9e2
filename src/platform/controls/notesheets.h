// Notes side by side, to be read only, and a list beside them.
#pragma once

#include "platform/controls/named.h"
#include "platform/controls/notepanel.h"

#include <QLabel>
#include <QListWidget>
#include <QSplitter>

inline QWidget* MakeColumn(const QString& caption, QWidget* content)
{
    auto* column = new QWidget;
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel(caption));
    layout->addWidget(content, 1);
    return column;
}

inline QWidget* MakeSheet(const QString& caption, const char* name, RichTextBox*& box)
{
    box = Named(new RichTextBox, name);
    box->setAccessibleName(caption);
    box->SetLocked(true);
    return MakeColumn(caption, MakeNotePanel(box));
}

// The sheets share what the list, already filled, leaves of the width: two thirds at least.
inline QSplitter* MakeSheets(QListWidget& list, const QString& caption, int width,
                             std::initializer_list<QWidget*> sheets)
{
    constexpr int Gap = 12, ScrollBarAndGap = 28;
    list.setMinimumWidth(qMin(list.sizeHintForColumn(0) + ScrollBarAndGap, width / 3));
    auto* row = new QSplitter;
    row->addWidget(MakeColumn(caption, &list));
    QList<int> sizes = {list.minimumWidth()};
    for (QWidget* sheet : sheets) {
        row->addWidget(sheet);
        row->setStretchFactor(row->count() - 1, 1);
        sizes += (width - list.minimumWidth()) / int(sheets.size());
    }
    row->setSizes(sizes);
    row->setHandleWidth(Gap);
    row->setChildrenCollapsible(false);
    return row;
}

inline QLabel* MakeWrappedText(const QString& text)
{
    auto* label = new QLabel(text);
    label->setWordWrap(true);
    return label;
}
