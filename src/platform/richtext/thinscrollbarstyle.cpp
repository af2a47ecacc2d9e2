#include "platform/richtext/thinscrollbarstyle.h"

#include "platform/look/paper.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOptionSlider>

#include <algorithm>

namespace {
constexpr int Extent = 7;
constexpr int ShortestHandle = 16;

QRect Handle(const QStyleOptionSlider& slider)
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
} // namespace

ThinScrollBarStyle& ThinScrollBarStyle::Shared()
{
    static QPointer<ThinScrollBarStyle> style;
    if (!style) {
        style = new ThinScrollBarStyle;
        style->setParent(qApp);
    }
    return *style;
}

int ThinScrollBarStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_ScrollBarExtent:
        return Extent;
    case PM_ScrollBarSliderMin:
        return ShortestHandle;
    default:
        return QCommonStyle::pixelMetric(metric, option, widget);
    }
}

QRect ThinScrollBarStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                         const QWidget* widget) const
{
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control != CC_ScrollBar || !slider) return QCommonStyle::subControlRect(control, option, part, widget);
    const QRect bar = slider->rect;
    const QRect handle = Handle(*slider);
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

void ThinScrollBarStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                            QPainter* painter, const QWidget* widget) const
{
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control != CC_ScrollBar || !slider) return QCommonStyle::drawComplexControl(control, option, painter, widget);
    if (slider->maximum <= slider->minimum) return;
    const bool active = slider->state & State_MouseOver || slider->activeSubControls & SC_ScrollBarSlider;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(active ? paper::ActiveScrollHandle : paper::ScrollHandle);
    painter->drawRoundedRect(QRectF(Handle(*slider)).adjusted(1.5, 1, -1.5, -1), 2, 2);
    painter->restore();
}
