// Size and place of windows before they are shown.
#pragma once

#include <QBoxLayout>
#include <QScreen>
#include <QWidget>

// The width at which the title bar shows the whole title. Estimated by the desktop's font, since the window manager's
// is unknown, with room for its buttons; never wider than the screen.
inline int WidthForTitle(const QWidget& window)
{
    constexpr int Buttons = 100;
    QFont letters = window.font();
    letters.setBold(true);
    const int wanted = QFontMetrics(letters).horizontalAdvance(window.windowTitle()) + Buttons;
    return qMin(wanted, window.screen()->availableGeometry().width() - Buttons);
}

// Fits the window to its controls and title.
inline void CenterOnScreen(QWidget& window)
{
    if (auto* column = qobject_cast<QVBoxLayout*>(window.layout())) column->addStrut(WidthForTitle(window));
    window.adjustSize();
    window.move(window.screen()->availableGeometry().center() - window.rect().center());
}
