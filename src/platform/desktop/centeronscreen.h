// Places a window that has not been shown yet.
#pragma once

#include <QScreen>
#include <QWidget>

inline void CenterOnScreen(QWidget& window)
{
    window.adjustSize();
    window.move(window.screen()->availableGeometry().center() - window.rect().center());
}
