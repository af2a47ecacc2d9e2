// The size and place of a window that has not been shown yet.
#pragma once

#include <QBoxLayout>
#include <QScreen>
#include <QWidget>

// How wide a window must be for its title bar to show the whole title.
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

// As wide as its controls and its title need it.
inline void CenterOnScreen(QWidget& window)
{
    if (auto* column = qobject_cast<QVBoxLayout*>(window.layout())) column->addStrut(WidthForTitle(window));
    window.adjustSize();
    window.move(window.screen()->availableGeometry().center() - window.rect().center());
}
