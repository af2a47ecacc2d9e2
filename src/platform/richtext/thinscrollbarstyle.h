// The scroll bar of a note: narrow, without arrows, only a handle on the paper. One style serves all notes.
#pragma once

#include <QCommonStyle>

class ThinScrollBarStyle : public QCommonStyle
{
    Q_OBJECT

public:
    static ThinScrollBarStyle& Shared(); // lives as long as the application

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
};
