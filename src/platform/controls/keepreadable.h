// What is disabled only because nothing is to be edited is there to be read: a little paler than the theme's text, on a
// dark desktop as on a light one.
#pragma once

#include <QWidget>

// Of the widget and of all that it holds.
inline void KeepReadable(QWidget& disabled)
{
    constexpr float Strength = 0.75F;
    QPalette palette = disabled.palette();
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        QColor soft = palette.color(QPalette::Active, role);
        soft.setAlphaF(Strength);
        palette.setColor(QPalette::Disabled, role, soft);
    }
    disabled.setPalette(palette);
}
