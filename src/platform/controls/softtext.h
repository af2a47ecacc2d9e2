// A label that stands back behind the others: paler than the theme's text, whatever colours the theme has.
#pragma once

#include <QLabel>

inline void SoftenText(QLabel& label)
{
    constexpr float Strength = 0.75F;
    QPalette palette = label.palette();
    QColor soft = palette.color(QPalette::WindowText);
    soft.setAlphaF(Strength);
    palette.setColor(QPalette::WindowText, soft);
    label.setPalette(palette);
}
