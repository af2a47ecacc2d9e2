// Where the marks are on the screen.
#include "platform/look/paper.h"
#include "platform/richtext/richtextbox.h"
#include "platform/spelling/spellmarks.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace {
constexpr int Slack = 2; // pixels around a word; the caret may stand behind the last letter

// A word of the document among the laid out characters, which include the text that an input method shows.
TextSpan InLayout(const QTextBlock& block, const TextSpan& word)
{
    const int composed = int(block.layout()->preeditAreaText().size()), at = block.layout()->preeditAreaPosition();
    const int start = word.start - block.position(), end = word.end - block.position();
    return {start >= at ? start + composed : start, end > at ? end + composed : end};
}

// The part of the word in this line, from its baseline down; empty if there is none.
QRectF UnderWord(const QTextLine& line, const QTextBlock& block, const TextSpan& word)
{
    const int start = std::max(InLayout(block, word).start, line.textStart());
    const int end = std::min(InLayout(block, word).end, line.textStart() + line.textLength());
    if (start >= end) return {};
    const qreal from = line.cursorToX(start), to = line.cursorToX(end - 1, QTextLine::Trailing);
    return QRectF(QPointF(from, line.y() + line.ascent()), QPointF(to, line.y() + line.height())).normalized();
}

// Two pixels high, so that it fits below small letters, too; larger below large ones.
void DrawWave(QPainter& painter, const QRectF& place)
{
    const qreal half = std::clamp(place.height() / 6, 1.0, 2.5);
    const qreal middle = std::min(place.top() + 2 * half, place.bottom() - half);
    QPainterPath wave(QPointF(place.left(), middle + half));
    int side = -1;
    for (qreal x = place.left() + 2 * half; x < place.right() + half; x += 2 * half, side = -side)
        wave.lineTo(std::min(x, place.right()), middle + side * half);
    painter.drawPath(wave);
}
} // namespace

// The place in the text at this point of the viewport.
int SpellMarks::At(const QPoint& point) const
{
    return m_box.cursorForPosition(point).position();
}

bool SpellMarks::HasLetterAt(const QPoint& point) const
{
    const QAbstractTextDocumentLayout& layout = *m_box.document()->documentLayout();
    const QPointF scrolled(m_box.horizontalScrollBar()->value(), m_box.verticalScrollBar()->value());
    const auto isLetter = [&](int beside) {
        const int at = layout.hitTest(point + scrolled + QPointF(beside, 0), Qt::ExactHit);
        return at >= 0 && m_box.document()->characterAt(at).isLetter();
    };
    return isLetter(-Slack) || isLetter(Slack);
}

QRectF SpellMarks::PlaceOf(const QTextBlock& block) const
{
    const QPointF scrolled(m_box.horizontalScrollBar()->value(), m_box.verticalScrollBar()->value());
    return m_box.document()->documentLayout()->blockBoundingRect(block).translated(-scrolled);
}

void SpellMarks::Repaint(const QTextBlock& block) const
{
    const QRect shown = m_box.viewport()->rect();
    if (block.position() > At(shown.bottomRight()) || block.position() + block.length() <= At(shown.topLeft())) return;
    m_box.viewport()->update(PlaceOf(block).toAlignedRect());
}

void SpellMarks::Paint(const QRect& part) const
{
    if (m_words.empty() || m_box.Locked() || m_box.window()->focusWidget() != &m_box) return;
    QPainter painter(m_box.viewport());
    painter.setClipRect(part);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(paper::UnknownWord, 1));
    QTextBlock block = m_box.document()->findBlock(At(part.topLeft()));
    for (; block.isValid() && PlaceOf(block).top() <= part.bottom(); block = block.next())
        PaintParagraph(painter, block, part);
}

void SpellMarks::PaintParagraph(QPainter& painter, const QTextBlock& block, const QRectF& part) const
{
    const QTextLayout& layout = *block.layout();
    painter.save();
    painter.translate(PlaceOf(block).topLeft());
    const QRectF shown = part.translated(-PlaceOf(block).topLeft());
    for (int i = 0; i < layout.lineCount(); ++i) {
        const QTextLine line = layout.lineAt(i);
        if (line.y() > shown.bottom()) break;
        if (line.y() + line.height() >= shown.top()) PaintLine(painter, block, line);
    }
    painter.restore();
}

void SpellMarks::PaintLine(QPainter& painter, const QTextBlock& block, const QTextLine& line) const
{
    const int composed = int(block.layout()->preeditAreaText().size());
    const int start = block.position() + line.textStart() - composed, end = start + composed + line.textLength();
    auto word = std::ranges::upper_bound(m_words, start, {}, &TextSpan::end);
    for (; word != m_words.end() && word->start < end; ++word)
        if (const QRectF place = UnderWord(line, block, *word); !place.isEmpty() && IsShown(*word))
            DrawWave(painter, place);
}

std::optional<TextSpan> SpellMarks::WordAt(const QPoint& globalPosition)
{
    const QPoint point = m_box.viewport()->mapFromGlobal(globalPosition);
    CheckNow(point);
    const QTextBlock block = m_box.document()->findBlock(At(point));
    const QPointF inBlock = point - PlaceOf(block).topLeft();
    for (auto word = std::ranges::lower_bound(m_words, At(point), {}, &TextSpan::end);
         word != m_words.end() && word->start <= At(point); ++word) {
        for (int i = 0; i < block.layout()->lineCount(); ++i) {
            const QTextLine line = block.layout()->lineAt(i);
            const QRectF place = UnderWord(line, block, *word);
            if (place.isEmpty()) continue;
            if (place.adjusted(-Slack, -line.ascent(), Slack, Slack).contains(inBlock)) return *word;
        }
    }
    return {};
}
