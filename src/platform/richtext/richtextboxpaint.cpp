#include "platform/richtext/pictureimage.h"
#include "platform/richtext/richtextbox.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QPaintEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>

#include <cmath>

namespace {
constexpr int MostLines = 1000; // examined at each painting
constexpr qreal Tolerance = 0.5;

struct Extent
{
    qreal ascent = 0;
    qreal descent = 0;
};

// The extent of the line's content.
Extent NeededBy(const QTextLine& line, const QTextBlock& block)
{
    const int first = block.position() + line.textStart(), last = first + line.textLength();
    Extent needed;
    QPaintDevice* device = block.document()->documentLayout()->paintDevice();
    for (auto part = block.begin(); !part.atEnd(); ++part) {
        const QTextFragment run = part.fragment();
        if (run.position() >= last || run.position() + run.length() <= first) continue;
        const QTextCharFormat format = run.charFormat();
        const QFontMetricsF metrics(format.font(), device);
        needed.ascent = qMax(needed.ascent, format.isImageFormat()
                                                ? SizeInLayout(*block.document(), format.toImageFormat()).height()
                                                : metrics.ascent());
        if (!format.isImageFormat()) needed.descent = qMax(needed.descent, metrics.descent());
    }
    return needed;
}

void MoveUp(QTextLine line, qreal by)
{
    line.setPosition(line.position() - QPointF(0, by));
}
// A picture that does not fit moves to the next line, but the toolkit has raised the previous line to its height by
// then. This removes that gap: it moves the line's text and all that follows up. Calling it again changes nothing. Very
// long paragraphs are skipped.
void CloseGapsAbovePictures(const QTextBlock& block)
{
    const QTextLayout& layout = *block.layout();
    const QString text = layout.lineCount() > MostLines ? QString() : block.text();
    if (!text.contains(QChar::ObjectReplacementCharacter)) return;
    for (int i = 1; i < layout.lineCount(); ++i) {
        const QTextLine next = layout.lineAt(i), line = layout.lineAt(i - 1);
        if (text[next.textStart()] != QChar::ObjectReplacementCharacter) continue;
        const bool isClosed = next.y() - line.y() < line.height() - Tolerance;
        const Extent needed = NeededBy(line, block);
        const qreal gap = line.height() - needed.ascent - needed.descent;
        if (isClosed || gap < Tolerance) continue;
        MoveUp(line, line.ascent() - needed.ascent);
        for (int below = i; below < layout.lineCount(); ++below)
            MoveUp(layout.lineAt(below), gap);
    }
}

void CloseGaps(const QTextDocument& document, int top, int bottom)
{
    const auto* layout = document.documentLayout();
    QTextBlock block = document.findBlock(qMax(0, layout->hitTest(QPointF(0, top), Qt::FuzzyHit)));
    for (; block.isValid() && layout->blockBoundingRect(block).top() < bottom; block = block.next())
        CloseGapsAbovePictures(block);
}
} // namespace

// The layout takes the box for a screen with more dots per inch, on which points are larger.
void RichTextBox::SetZoom(int percent)
{
    if (percent == m_zoom) return;
    m_zoom = percent;
    constexpr double InchesPerMetre = 1 / 0.0254;
    const int dots = qRound(viewport()->logicalDpiY() * percent / 100.0 * InchesPerMetre);
    m_zoomed = QImage(1, 1, QImage::Format_Mono);
    m_zoomed.setDotsPerMeterX(dots);
    m_zoomed.setDotsPerMeterY(dots);
    QPaintDevice* usual = viewport();
    document()->setLayoutEnabled(false);
    document()->documentLayout()->setPaintDevice(percent == 100 ? usual : &m_zoomed);
    document()->setLayoutEnabled(true); // lays out what is shown, the rest later
    if (hasFocus()) ensureCursorVisible();
}

// The height of the line that the upper edge cuts through; 0 if there is none, or if it is so high that it must be
// shown in parts.
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

// Half a line below a cell's number would look like a fault, so it is not painted.
void RichTextBox::paintEvent(QPaintEvent* event)
{
    const int top = verticalScrollBar()->value();
    CloseGaps(*document(), top, top + viewport()->height());
    const QRect whole = event->rect() & viewport()->rect().adjusted(0, CutHeight(), 0, 0);
    if (whole.isEmpty()) return;
    QPaintEvent visible(whole);
    QTextEdit::paintEvent(&visible);
    Q_EMIT Painted(whole);
}
