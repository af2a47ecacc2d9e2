// Places a window that has not been shown yet.
#pragma once

#include "platform/desktop/titlewidth.h"

#include <QBoxLayout>

// As wide as its controls and its title need it.
inline void CenterOnScreen(QWidget& window)
{
    if (auto* column = qobject_cast<QVBoxLayout*>(window.layout())) column->addStrut(WidthForTitle(window));
    window.adjustSize();
    window.move(window.screen()->availableGeometry().center() - window.rect().center());
}
