// The look of standard controls on paper: picture buttons, combo boxes and the thin scroll bar of notes. It only paints
// and measures.
#pragma once

#include <QProxyStyle>

class PaperStyle : public QProxyStyle
{
    Q_OBJECT

public:
    static constexpr int PictureGap = 7; // in combo boxes, between picture and text

    static PaperStyle& Shared(); // for all controls; lives as long as the application

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
    // contents counts for combo boxes only.
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    // A flat push button has no frame at rest. Its text is below the picture, if it fits.
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    // A tool button with State_NoChange is grey, for a mixed selection.
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
};
