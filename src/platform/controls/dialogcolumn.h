// Layouts of dialogs.
#pragma once

#include "platform/controls/dialogpart.h"
#include "platform/controls/named.h"

#include <QDialog>
#include <QLabel>
#include <QVBoxLayout>

// A column. By default it fixes the dialog's size, so that no window manager offers to maximise it.
inline QVBoxLayout* DialogColumn(QDialog& dialog, QLayout::SizeConstraint constraint = QLayout::SetFixedSize)
{
    constexpr int Gap = 2 * Rhythm;
    auto* column = new QVBoxLayout(&dialog);
    column->setContentsMargins(Gap, Gap, Gap, Gap);
    column->setSpacing(Gap);
    column->setSizeConstraint(constraint);
    return column;
}

// A part of the column; returns the layout of its controls.
template <typename Layout = QVBoxLayout>
Layout& AddPart(QBoxLayout& column, const QString& heading, DialogPart::Kind kind = DialogPart::Kind::Usual)
{
    auto* part = new DialogPart(heading, kind);
    column.addWidget(part);
    return *new Layout(part);
}

// A control with a caption, such as a button or a label.
template <typename Control>
Control* AddTo(QLayout& layout, const char* name, const QString& caption)
{
    auto* control = Named(new Control(caption), name);
    layout.addWidget(control);
    return control;
}

// A label whose key enters the box beside it.
inline QLabel* LabelOf(const QString& text, QWidget* box)
{
    auto* label = new QLabel(text);
    label->setBuddy(box);
    return label;
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
