// The panel around a note in a window of its own.
#pragma once

#include "platform/controls/sspanel.h"
#include "platform/desktop/centeronscreen.h"
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

// The window opens in the middle of the screen, so high that the note takes half of it, if the screen allows that.
inline void CenterAroundNote(QWidget& window, const RichTextBox& note)
{
    constexpr int TitleBar = 40;
    window.layout()->setSizeConstraint(QLayout::SetDefaultConstraint); // a larger window shows more of the note
    CenterOnScreen(window);
    const int others = window.minimumSizeHint().height() - note.parentWidget()->minimumHeight();
    const QRect screen = window.screen()->availableGeometry();
    window.resize(window.width(), qMin(2 * others, screen.height() - TitleBar));
    window.move(screen.center() - window.rect().center());
}
