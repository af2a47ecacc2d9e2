// Text slightly paler than the theme's, on dark and light desktops.
#pragma once

#include <QLabel>

inline constexpr float SoftStrength = 0.75F;

// For a secondary label.
inline void SoftenText(QLabel& label)
{
    QPalette palette = label.palette();
    QColor soft = palette.color(QPalette::WindowText);
    soft.setAlphaF(SoftStrength);
    palette.setColor(QPalette::WindowText, soft);
    label.setPalette(palette);
}

// For a disabled widget and its children, if their text is still to be read.
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
