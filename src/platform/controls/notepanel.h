// The panel around a note in a window of its own.
#pragma once

#include "platform/controls/sspanel.h"
#include "platform/look/paper.h"
#include "platform/richtext/richtextbox.h"

#include <QVBoxLayout>

inline SSPanel* MakeNotePanel(RichTextBox* box)
{
    auto* panel = new SSPanel;
    panel->SetPaper(paper::Paper);
    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(10, 8, 2, 8); // the scroll bar is at the edge
    layout->addWidget(box);
    return panel;
}
