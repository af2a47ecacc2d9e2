#include "platform/richtext/richtextbox.h"
#include "platform/richtext/wrappedpictures.h"

#include <QAbstractTextDocumentLayout>
#include <QPaintEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>

#include <cmath>

namespace {
void CloseGaps(const QTextDocument& document, int top, int bottom)
{
    const auto* layout = document.documentLayout();
    QTextBlock block = document.findBlock(qMax(0, layout->hitTest(QPointF(0, top), Qt::FuzzyHit)));
    for (; block.isValid() && layout->blockBoundingRect(block).top() < bottom; block = block.next())
        CloseGapsAbovePictures(block);
}
} // namespace

// How much of a line sticks out at the top, cut through by the edge; 0 if that line is so high that the box has to
// show it in parts.
int RichTextBox::CutHeight() const
{
    const int edge = verticalScrollBar()->value();
    if (edge == 0) return 0;
    const auto* layout = document()->documentLayout();
    const QTextBlock block = document()->findBlock(layout->hitTest(QPointF(0, edge), Qt::FuzzyHit));
    const qreal top = layout->blockBoundingRect(block).top() - edge;
    for (int i = 0; i < block.layout()->lineCount(); ++i) {
        const QRectF line = block.layout()->lineAt(i).rect().translated(0, top);
        if (line.bottom() <= 0) continue;
        const bool cut = line.top() < 0 && line.height() <= viewport()->height() / 2.0;
        return cut ? int(std::ceil(line.bottom())) : 0;
    }
    return 0;
}

// Half a line right under a cell's number would look like a fault, so it is left out.
void RichTextBox::paintEvent(QPaintEvent* event)
{
    const int top = verticalScrollBar()->value();
    CloseGaps(*document(), top, top + viewport()->height());
    const QRect whole = event->rect() & viewport()->rect().adjusted(0, CutHeight(), 0, 0);
    if (whole.isEmpty()) return;
    QPaintEvent visible(whole);
    QTextEdit::paintEvent(&visible);
}
