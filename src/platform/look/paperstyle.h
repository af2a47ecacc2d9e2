// How the toolkit's own controls look on paper: buttons with a picture, combo boxes, the thin scroll bar of a note. It
// paints and measures; what a control does is the toolkit's.
#pragma once

#include <QProxyStyle>

class PaperStyle : public QProxyStyle
{
    Q_OBJECT

public:
    static constexpr int PictureGap = 7; // in a combo box, from the entry's picture to its text

    static PaperStyle& Shared(); // serves all controls; lives as long as the application

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
    // Of a combo box, the contents are picture and text; of a button they follow from the option.
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    // A flat push button has no frame at rest. Its text stands below the picture, and only where it fits.
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    // A tool button without a change of its own (State_NoChange) is grey: it stands for a mixed selection.
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
};
