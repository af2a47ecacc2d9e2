// Screens, and where a window with a stored place may stand on them.
#pragma once

#include <QRect>

class QScreen;

// The rectangle, pulled back onto a screen if none shows its title bar, no larger than all screens together and no
// smaller than given. A window that can be dragged by its title is left where it was, however little of it shows.
QRect ReachablePlace(QRect window, const QSize& smallest);

// Whether windows can know and choose their place; on Wayland they cannot, and the one stored elsewhere must stay.
bool WindowsKnowTheirPlace();

// A screen's size in its own pixels.
QSize NativeSize(const QScreen& screen);
