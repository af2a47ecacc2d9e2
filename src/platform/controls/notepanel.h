// The panel around a note in a window of its own.
#pragma once

#include "platform/controls/sspanel.h"
#include "platform/look/paper.h"
#include "platform/richtext/richtextbox.h"

#include <QVBoxLayout>

inline SSPanel* MakeNotePanel(RichTextBox* box, const QSize& least = {0, 0})
{
    auto* panel = new SSPanel;
    panel->setMinimumSize(least);
    panel->SetPaper(paper::Paper);
    panel->SetEdges(Qt::TopEdge | Qt::LeftEdge | Qt::RightEdge | Qt::BottomEdge);
    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(10, 8, 2, 8); // the scroll bar is at the edge
    layout->addWidget(box);
    return panel;
}
