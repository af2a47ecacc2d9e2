// How wide a window must be for its title bar to show the whole title.
#pragma once

#include <QScreen>
#include <QWidget>

// By the desktop's letters, as nobody tells those of the window manager, and with room for its buttons. A path may be
// longer than the screen is wide.
inline int WidthForTitle(const QWidget& window)
{
    constexpr int Buttons = 100;
    QFont letters = window.font();
    letters.setBold(true);
    const int wanted = QFontMetrics(letters).horizontalAdvance(window.windowTitle()) + Buttons;
    return qMin(wanted, window.screen()->availableGeometry().width() - Buttons);
}
