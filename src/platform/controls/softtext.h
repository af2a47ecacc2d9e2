// Text that is a little paler than the theme's, on a dark desktop as on a light one.
#pragma once

#include <QLabel>

inline constexpr float SoftStrength = 0.75F;

// A label that stands back behind the others.
inline void SoftenText(QLabel& label)
{
    QPalette palette = label.palette();
    QColor soft = palette.color(QPalette::WindowText);
    soft.setAlphaF(SoftStrength);
    palette.setColor(QPalette::WindowText, soft);
    label.setPalette(palette);
}

// What is disabled only because nothing is to be edited is there to be read. Of the widget and of all that it holds.
inline void KeepReadable(QWidget& disabled)
{
    QPalette palette = disabled.palette();
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        QColor soft = palette.color(QPalette::Active, role);
        soft.setAlphaF(SoftStrength);
        palette.setColor(QPalette::Disabled, role, soft);
    }
    disabled.setPalette(palette);
}
