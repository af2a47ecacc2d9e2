#include "platform/look/paperstyle.h"

#include "platform/look/paper.h"

#include <QApplication>
#include <QPainter>
#include <QPointer>
#include <QStyleOption>

#include <algorithm>

namespace {
constexpr QSize BareButton{10, 6};       // added to a picture
constexpr QSize CaptionedButton{20, 26}; // added to picture and text
constexpr int CaptionGap = 4;
constexpr int TextMargin = 9; // of combo boxes
constexpr int ArrowWidth = 24;
constexpr int LeastComboHeight = 28;
constexpr int LinePadding = 10; // above and below a combo box's text, in sum
constexpr int ScrollBarWidth = 7;
constexpr int ShortestHandle = 16;

void DrawGround(QPainter& painter, const QRectF& area, qreal radius, const QBrush& ground, const QPen& line = Qt::NoPen)
{
    painter.setPen(line);
    painter.setBrush(ground);
    painter.drawRoundedRect(area, radius, radius);
}

// Pictures are never stretched, so they are sharp at every pixel ratio.
void DrawPicture(QPainter& painter, const QPoint& at, const QIcon& picture, const QSize& size)
{
    painter.drawPixmap(at, picture.pixmap(size, painter.device()->devicePixelRatioF()));
}

bool Has(const QStyleOption& option, QStyle::State state)
{
    return (option.state & state) != 0;
}

QColor GroundOf(const QStyleOptionToolButton& button)
{
    const bool touched = Has(button, QStyle::State_Enabled) && Has(button, QStyle::State_MouseOver);
    QColor ground = touched ? paper::Band : QColor(Qt::transparent);
    if (Has(button, QStyle::State_On)) ground = touched ? paper::AccentTint.darker(105) : paper::AccentTint;
    if (Has(button, QStyle::State_NoChange)) ground = paper::MixedGround;
    if (Has(button, QStyle::State_Sunken)) ground = ground.alpha() == 0 ? paper::Hairline : ground.darker(110);
    return ground;
}

void DrawToolButton(const QStyleOptionToolButton& button, QPainter& painter)
{
    constexpr qreal Radius = 4;
    const QRectF area = QRectF(button.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    DrawGround(painter, area, Radius, GroundOf(button));
    if (Has(button, QStyle::State_NoChange))
        DrawGround(painter, area, Radius, QBrush(paper::MixedDots, Qt::Dense6Pattern));
    if (Has(button, QStyle::State_HasFocus))
        DrawGround(painter, area.adjusted(0.5, 0.5, -0.5, -0.5), Radius, Qt::NoBrush, QPen(paper::Accent, 2));
    if (!Has(button, QStyle::State_Enabled)) painter.setOpacity(0.35);
    const QSize free = button.rect.size() - button.iconSize;
    DrawPicture(painter, {free.width() / 2, free.height() / 2}, button.icon, button.iconSize);
}

void DrawButtonGround(const QStyleOptionButton& button, QPainter& painter)
{
    constexpr qreal Radius = 6;
    const bool framed = !(button.features & QStyleOptionButton::Flat);
    const bool chosen = Has(button, QStyle::State_On | QStyle::State_Sunken);
    QColor ground = framed ? paper::Paper : QColor(Qt::transparent);
    if (Has(button, QStyle::State_MouseOver)) ground = paper::Band;
    if (chosen) ground = paper::AccentTint;
    QPen line(Qt::NoPen);
    if (framed) line = QPen(paper::Hairline, 1);
    if (chosen) line = QPen(paper::Accent, 1);
    if (Has(button, QStyle::State_HasFocus)) line = QPen(paper::Accent, 2);
    DrawGround(painter, QRectF(button.rect).adjusted(1, 1, -1, -1), Radius, ground, line);
}

void DrawButton(const QStyleOptionButton& button, QPainter& painter)
{
    DrawButtonGround(button, painter);
    if (!Has(button, QStyle::State_Enabled)) painter.setOpacity(0.4);
    const QSize size = button.iconSize;
    int textHeight = button.text.isEmpty() ? 0 : button.fontMetrics.height() + CaptionGap;
    if (button.rect.height() < size.height() + textHeight + CaptionGap) textHeight = 0;
    const int top = (button.rect.height() - size.height() - textHeight) / 2;
    DrawPicture(painter, {(button.rect.width() - size.width()) / 2, top}, button.icon, size);
    if (textHeight == 0) return;
    painter.setPen(Has(button, QStyle::State_On) ? paper::Accent : paper::SoftInk);
    painter.drawText(QRect(0, top + size.height() + CaptionGap, button.rect.width(), textHeight),
                     Qt::AlignHCenter | Qt::AlignTop, button.text);
}

QSize SizeOf(const QStyleOptionButton& button)
{
    if (button.text.isEmpty()) return button.iconSize + BareButton;
    const int width = std::max(button.iconSize.width(), button.fontMetrics.horizontalAdvance(button.text));
    return QSize(width, button.iconSize.height() + button.fontMetrics.height()) + CaptionedButton;
}

// Takes the colours of its ground, paper or window.
void DrawComboBox(const QStyleOptionComboBox& box, QPainter& painter)
{
    if (!Has(box, QStyle::State_Enabled)) painter.setOpacity(0.5);
    const bool focused = Has(box, QStyle::State_HasFocus);
    const bool touched = Has(box, QStyle::State_Enabled) && Has(box, QStyle::State_MouseOver);
    const qreal line = focused ? 2 : 1;
    const QColor ground = box.palette.color(QPalette::Base);
    DrawGround(painter, QRectF(box.rect).adjusted(line / 2, line / 2, -line / 2, -line / 2), 4,
               touched ? ground.lighter(110) : ground,
               QPen(focused ? paper::Accent : box.palette.color(QPalette::Mid), line));
    painter.setPen(QPen(box.palette.color(QPalette::PlaceholderText), 1.7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF tip(box.rect.width() - ArrowWidth / 2.0, box.rect.height() / 2.0 + 2);
    painter.drawPolyline(QPolygonF{tip + QPointF(-4, -4), tip, tip + QPointF(4, -4)});
}

void DrawComboBoxLabel(const QStyleOptionComboBox& box, QPainter& painter)
{
    if (!Has(box, QStyle::State_Enabled)) painter.setOpacity(0.5);
    QRect text = box.rect.adjusted(TextMargin, 0, -ArrowWidth, 0);
    if (!box.currentIcon.isNull()) {
        const int top = (box.rect.height() - box.iconSize.height()) / 2;
        box.currentIcon.paint(&painter, QRect(QPoint(text.left(), top), box.iconSize));
        text.setLeft(text.left() + box.iconSize.width() + PaperStyle::PictureGap);
    }
    painter.setPen(box.palette.color(QPalette::Text));
    painter.drawText(text, Qt::AlignVCenter, box.fontMetrics.elidedText(box.currentText, Qt::ElideRight, text.width()));
}

QRect HandleOf(const QStyleOptionSlider& slider)
{
    const int length = slider.rect.height();
    const qint64 range = qint64(slider.maximum) - slider.minimum;
    if (range <= 0) return slider.rect;
    const int share = int(qint64(length) * slider.pageStep / (range + slider.pageStep));
    const int handle = std::min(length, std::max(ShortestHandle, share));
    const int top = QStyle::sliderPositionFromValue(slider.minimum, slider.maximum, slider.sliderPosition,
                                                    length - handle, slider.upsideDown);
    return {slider.rect.x(), slider.rect.y() + top, slider.rect.width(), handle};
}

// A handle without arrows; nothing if there is nothing to scroll.
void DrawScrollBar(const QStyleOptionSlider& slider, QPainter& painter)
{
    if (slider.maximum <= slider.minimum) return;
    const bool touched = Has(slider, QStyle::State_MouseOver) || slider.activeSubControls & QStyle::SC_ScrollBarSlider;
    DrawGround(painter, QRectF(HandleOf(slider)).adjusted(1.5, 1, -1.5, -1), 2,
               touched ? paper::ActiveScrollHandle : paper::ScrollHandle);
}

// Calls draw if the option has its type.
template <typename Option>
bool Draw(void (*draw)(const Option&, QPainter&), const QStyleOption* option, QPainter* painter)
{
    const auto* fitting = qstyleoption_cast<const Option*>(option);
    if (!fitting) return false;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    draw(*fitting, *painter);
    painter->restore();
    return true;
}
} // namespace

PaperStyle& PaperStyle::Shared()
{
    static QPointer<PaperStyle> style;
    if (!style) {
        style = new PaperStyle;
        style->setParent(qApp);
    }
    return *style;
}

int PaperStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    if (metric == PM_ScrollBarExtent) return ScrollBarWidth;
    if (metric == PM_ScrollBarSliderMin) return ShortestHandle;
    return QProxyStyle::pixelMetric(metric, option, widget);
}

// Some styles would open a combo box as a menu as long as the screen, or fade scroll bars out.
int PaperStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* data) const
{
    if (hint == SH_ComboBox_Popup || hint == SH_ScrollBar_Transient) return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
}

QSize PaperStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                   const QWidget* widget) const
{
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (type == CT_PushButton && button) return SizeOf(*button);
    if (type == CT_ComboBox)
        return {TextMargin + contents.width() + ArrowWidth,
                std::max(LeastComboHeight, contents.height() + LinePadding)};
    return QProxyStyle::sizeFromContents(type, option, contents, widget);
}

QRect PaperStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                 const QWidget* widget) const
{
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control != CC_ScrollBar || !slider) return QProxyStyle::subControlRect(control, option, part, widget);
    const QRect bar = slider->rect;
    const QRect handle = HandleOf(*slider);
    switch (part) {
    case SC_ScrollBarGroove:
        return bar;
    case SC_ScrollBarSlider:
        return handle;
    case SC_ScrollBarSubPage:
        return {bar.topLeft(), QPoint(bar.right(), handle.top() - 1)};
    case SC_ScrollBarAddPage:
        return {QPoint(bar.left(), handle.bottom() + 1), bar.bottomRight()};
    default:
        return {};
    }
}

void PaperStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const
{
    if (element == CE_PushButton && Draw(DrawButton, option, painter)) return;
    if (element == CE_ComboBoxLabel && Draw(DrawComboBoxLabel, option, painter)) return;
    QProxyStyle::drawControl(element, option, painter, widget);
}

void PaperStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                    const QWidget* widget) const
{
    if (control == CC_ToolButton && Draw(DrawToolButton, option, painter)) return;
    if (control == CC_ComboBox && Draw(DrawComboBox, option, painter)) return;
    if (control == CC_ScrollBar && Draw(DrawScrollBar, option, painter)) return;
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}
