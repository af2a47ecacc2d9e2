#include "platform/richtext/wrappedpictures.h"

#include <QFontMetricsF>
#include <QTextBlock>
#include <QTextLayout>

namespace {
constexpr int MostLines = 1000; // they are looked at with every painting
constexpr qreal Tolerance = 0.5;

struct Extent
{
    qreal ascent = 0;
    qreal descent = 0;
};

// What a line needs for what stands in it.
Extent NeededBy(const QTextLine& line, const QTextBlock& block)
{
    const int first = block.position() + line.textStart(), last = first + line.textLength();
    Extent needed;
    for (auto part = block.begin(); !part.atEnd(); ++part) {
        const QTextFragment run = part.fragment();
        if (run.position() >= last || run.position() + run.length() <= first) continue;
        const QTextCharFormat format = run.charFormat();
        const QFontMetricsF metrics(format.font());
        needed.ascent =
            qMax(needed.ascent, format.isImageFormat() ? format.toImageFormat().height() : metrics.ascent());
        if (!format.isImageFormat()) needed.descent = qMax(needed.descent, metrics.descent());
    }
    return needed;
}

void MoveUp(QTextLine line, qreal by)
{
    line.setPosition(line.position() - QPointF(0, by));
}
} // namespace

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
