// Visible as a value of its own: what was last set, whether or not a parent is shown.
#pragma once

#include <QWidget>

inline bool Visible(const QWidget& widget)
{
    return !widget.isHidden();
}
inline void SetVisible(QWidget& widget, bool visible)
{
    widget.setVisible(visible);
}
