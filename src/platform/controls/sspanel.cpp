#include "platform/controls/sspanel.h"

#include "platform/controls/accessrole.h"
#include "platform/look/colorvalue.h"
#include "platform/look/paper.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <array>

namespace {
constexpr int FrameWidth = 2, HeldFrameWidth = 3;

// A raised caption has its shadow below and to the right, an inset one above and to the left; the light is opposite.
struct Relief
{
    int direction;
    int depth;  // logical pixels
    int shadow; // percent from paper to black ink at one pixel; fades with the distance
};
constexpr std::array<Relief, 5> Reliefs{{{0, 0, 0}, {1, 1, 16}, {1, 2, 26}, {-1, 1, 16}, {-1, 2, 26}}};
constexpr int LightPercent = 80;
constexpr int CapitalPerDepth = 6; // least capital height per pixel of depth, so that small captions stay legible

QColor Mixed(const QColor& from, const QColor& to, int percent)
{
    const auto part = [percent](int a, int b) { return a + (b - a) * percent / 100; };
    return QColor(part(from.red(), to.red()), part(from.green(), to.green()), part(from.blue(), to.blue()));
}

// By row: top, middle, bottom. A line looks centred if its capitals are, since capitals and digits hardly descend.
int Baseline(int row, int height, const QFontMetrics& metrics)
{
    const int capital = metrics.capHeight();
    return std::array{std::max((paper::CaptionBand + capital + 1) / 2, capital + FrameWidth + 1),
                      (height + capital) / 2, height - metrics.descent() - FrameWidth}[std::size_t(row)];
}

// By column: left, right, middle.
int Start(int column, int width, int textWidth)
{
    return std::array{paper::Margin, width - paper::Margin - textWidth, (width - textWidth) / 2}[std::size_t(column)];
}

// Shortens a caption that is too wide. The ellipsis would leave nothing of a short one, so that keeps its first
// letters.
QString Shortened(const QString& caption, int width, const QFontMetrics& metrics)
{
    constexpr int TooShort = 3; // with the ellipsis
    const QString elided = metrics.elidedText(caption, Qt::ElideRight, width);
    if (elided == caption || elided.size() > TooShort) return elided;
    qsizetype letters = caption.size();
    while (letters > 1 && metrics.horizontalAdvance(caption, int(letters)) > width)
        --letters;
    return caption.left(letters);
}
} // namespace

SSPanel::SSPanel(QWidget* parent) : QWidget(parent), m_paper(paper::Paper)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    SetAccessibleRole(this, QAccessible::StaticText);
}

void SSPanel::SetCaption(const QString& caption)
{
    if (caption == m_caption) return;
    Set(m_caption, caption);
    setAccessibleName(caption.trimmed());
}

void SSPanel::SetCaptionAlignment(int alignment)
{
    Set(m_alignment, alignment < LeftTop || alignment > CenterBottom ? int(LeftTop) : alignment);
}

void SSPanel::SetFont3D(int effect)
{
    Set(m_font3D, effect < 0 || effect >= int(Reliefs.size()) ? 0 : effect);
}

void SSPanel::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), m_paper);
    PaintLines(painter);
    if (!m_caption.isEmpty()) PaintCaption(painter);
}

void SSPanel::PaintLines(QPainter& painter) const
{
    const std::array<std::pair<Qt::Edge, QRect>, 4> sides{{{Qt::TopEdge, {0, 0, width(), 1}},
                                                           {Qt::LeftEdge, {0, 0, 1, height()}},
                                                           {Qt::RightEdge, {width() - 1, 0, 1, height()}},
                                                           {Qt::BottomEdge, {0, height() - 1, width(), 1}}}};
    for (const auto& [edge, line] : sides) {
        if (m_edges & edge) painter.fillRect(line, paper::Hairline);
    }
    QColor frame = m_active ? paper::Accent : m_frame;
    if (m_held) frame = paper::LockFrame;
    if (!frame.isValid()) return;
    const int width = m_held ? HeldFrameWidth : FrameWidth;
    painter.setPen(QPen(frame, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    const int near = width / 2, far = (width + 1) / 2;
    painter.drawRect(rect().adjusted(near, near, -far, -far));
}

void SSPanel::PaintCaption(QPainter& painter) const
{
    painter.setFont(m_font);
    painter.setClipRect(rect().adjusted(FrameWidth, 0, -FrameWidth, 0));
    const QFontMetrics metrics = painter.fontMetrics();
    const QString shown = Shortened(m_caption.trimmed(), width() - 2 * (paper::Margin + m_sides), metrics);
    const int start = Start(m_alignment / 3, width(), metrics.horizontalAdvance(shown));
    const QPointF origin(std::max(FrameWidth, start), Baseline(m_alignment % 3, height(), metrics));
    const auto draw = [&](const QColor& color, qreal offset) {
        painter.setPen(color);
        painter.drawText(origin + QPointF(offset, offset), shown);
    };
    const Relief relief = Reliefs[std::size_t(m_font3D)];
    const QColor ink = ColorOfValue(m_foreColor);
    // Pale ink gets a pale shadow: beside grey text a black shadow would look like a second text.
    const int contrast = std::max(0, qGray(m_paper.rgb()) - qGray(ink.rgb()));
    const int depth = std::min(relief.depth, metrics.capHeight() / CapitalPerDepth);
    for (int step = qRound(depth * devicePixelRatioF()); step > 0; --step) {
        const qreal distance = step / devicePixelRatioF();
        const qreal strength = contrast / 255.0 / std::max(distance, 1.0);
        draw(Mixed(m_paper, ink, int(relief.shadow * strength)), relief.direction * distance);
        draw(Mixed(m_paper, Qt::white, int(LightPercent * strength)), -relief.direction * distance);
    }
    draw(ink, 0);
}

void SSPanel::mousePressEvent(QMouseEvent* event)
{
    m_pressed = event->button() == Qt::LeftButton;
    event->setAccepted(m_pressed);
}

void SSPanel::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !std::exchange(m_pressed, false)) return event->ignore();
    if (rect().contains(event->position().toPoint())) Q_EMIT Click();
}

void SSPanel::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return event->ignore();
    Q_EMIT DblClick();
}
