// Places for windows on the screens.
#pragma once

#include <QRect>

class QScreen;

// The rectangle, moved onto a screen if no screen shows its title bar. It is limited to all screens together and to the
// smallest size. A window that can be dragged by its title stays.
QRect ReachablePlace(QRect window, const QSize& smallest);

// Whether windows can know and set their place. On Wayland they cannot, so a stored place must be kept.
bool WindowsKnowTheirPlace();

// The screen's size in physical pixels.
QSize NativeSize(const QScreen& screen);
