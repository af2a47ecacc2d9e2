// Layouts of dialogs.
#pragma once

#include "platform/controls/dialogpart.h"

#include <QDialog>
#include <QVBoxLayout>

// A column. It fixes the dialog's size, so that no window manager offers to maximise it.
inline QVBoxLayout* DialogColumn(QDialog& dialog)
{
    constexpr int Gap = 2 * Rhythm;
    auto* column = new QVBoxLayout(&dialog);
    column->setContentsMargins(Gap, Gap, Gap, Gap);
    column->setSpacing(Gap);
    column->setSizeConstraint(QLayout::SetFixedSize);
    return column;
}

// A part of the column; returns the column of its controls.
inline QVBoxLayout& AddPart(QBoxLayout& column, const QString& heading)
{
    auto* part = new DialogPart(heading);
    column.addWidget(part);
    return *new QVBoxLayout(part);
}

// A row; null is a stretch.
inline QHBoxLayout* DialogRow(int gap, std::initializer_list<QWidget*> widgets)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(gap);
    for (QWidget* widget : widgets) {
        if (widget)
            row->addWidget(widget);
        else
            row->addStretch(1);
    }
    return row;
}
