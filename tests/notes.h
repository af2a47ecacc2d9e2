// Helpers for the text of a note: in a box, in the file, and dropped into a box.
#pragma once

#include "platform/richtext/richtextbox.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>

inline void Select(RichTextBox& box, int start, int length)
{
    box.SetSelStart(start);
    box.SetSelLength(length);
}

// The text of a stored note as a box shows it.
inline QString PlainText(const QByteArray& rtf)
{
    RichTextBox box;
    box.SetTextRTF(rtf);
    return box.Text();
}

// Whether the box accepted the drop.
inline bool Drop(RichTextBox& box, const QMimeData& data, QPoint at = {10, 10})
{
    const auto actions = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(at, actions, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(box.viewport(), &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop(at, actions, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(box.viewport(), &drop);
    return drop.isAccepted() && drop.dropAction() != Qt::IgnoreAction;
}
