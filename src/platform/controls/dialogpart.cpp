#include "platform/controls/dialogpart.h"

#include <QApplication>
#include <QFontInfo>
#include <QPainter>
#include <QPointer>
#include <QProxyStyle>
#include <QStyleOption>

namespace {
DialogPart::Kind KindOf(const QWidget* widget)
{
    const auto* part = dynamic_cast<const DialogPart*>(widget);
    return part ? part->kind() : DialogPart::Kind::Usual;
}

QFont HeadingFont(const QWidget& part)
{
    constexpr double LargerHeading = 1.2;
    QFont font = part.font();
    font.setWeight(QFont::DemiBold);
    if (KindOf(&part) == DialogPart::Kind::Whole) font.setPointSizeF(QFontInfo(font).pointSizeF() * LargerHeading);
    return font;
}

class DialogPartStyle : public QProxyStyle
{
public:
    static DialogPartStyle& Shared()
    {
        static QPointer<DialogPartStyle> style;
        if (!style) {
            style = new DialogPartStyle;
            style->setParent(qApp);
        }
        return *style;
    }

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override
    {
        if (metric >= PM_LayoutLeftMargin && metric <= PM_LayoutBottomMargin) return 0;
        if (metric == PM_LayoutHorizontalSpacing || metric == PM_LayoutVerticalSpacing)
            return KindOf(widget) == DialogPart::Kind::Whole ? 2 * Rhythm : Rhythm;
        return QProxyStyle::pixelMetric(metric, option, widget);
    }

    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override
    {
        const auto* box = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
        if (!box || part != SC_GroupBoxContents) return QProxyStyle::subControlRect(control, option, part, widget);
        const QSize room = SizeOf(box->text, *widget);
        if (KindOf(widget) != DialogPart::Kind::Line) return box->rect.adjusted(0, room.height(), 0, 0);
        return visualRect(box->direction, box->rect, box->rect.adjusted(room.width(), 0, 0, 0));
    }

    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override
    {
        const auto* box = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
        return box ? SizeOf(box->text, *widget) : QProxyStyle::sizeFromContents(type, option, contents, widget);
    }

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override
    {
        const auto* box = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
        if (!box) return QProxyStyle::drawComplexControl(control, option, painter, widget);
        const bool showsKey = styleHint(SH_UnderlineShortcut, option, widget) != 0;
        const Qt::Alignment across = visualAlignment(box->direction, Qt::AlignLeft);
        const Qt::Alignment down = KindOf(widget) == DialogPart::Kind::Line ? Qt::AlignVCenter : Qt::AlignTop;
        painter->save();
        painter->setFont(HeadingFont(*widget));
        drawItemText(painter, box->rect, int(across | down) | (showsKey ? Qt::TextShowMnemonic : Qt::TextHideMnemonic),
                     box->palette, (box->state & State_Enabled) != 0, box->text, QPalette::WindowText);
        painter->restore();
    }

private:
    // The heading with its gap to the controls.
    static QSize SizeOf(const QString& heading, const QWidget& part)
    {
        const int gap = KindOf(&part) == DialogPart::Kind::Usual ? Rhythm : 2 * Rhythm;
        const QFontMetrics metrics(HeadingFont(part));
        return metrics.size(Qt::TextShowMnemonic, heading).expandedTo({0, metrics.height()}) + QSize(gap, gap);
    }
};
} // namespace

DialogPart::DialogPart(const QString& heading, Kind kind) : QGroupBox(heading), m_kind(kind)
{
    setStyle(&DialogPartStyle::Shared());
}
