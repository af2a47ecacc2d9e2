// What is disabled only because nothing is to be edited is there to be read.
#pragma once

#include "platform/look/paper.h"

#include <QWidget>

// Of the widget and of all that it holds.
inline void KeepReadable(QWidget& disabled)
{
    QPalette palette = disabled.palette();
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, paper::SoftInk);
    disabled.setPalette(palette);
}
