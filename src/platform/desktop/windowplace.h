// Places for windows on the screens.
#pragma once

#include <QRect>

class QScreen;
class QWidget;

// The rectangle, moved onto a screen if no screen shows its title bar. It is limited to all screens together and to the
// smallest size. A window that can be dragged by its title stays. On Wayland it leaves room for panels, whose size
// nobody tells there.
QRect ReachablePlace(QRect window, const QSize& smallest);

// Whether windows can know and set their place. On Wayland they cannot, so a stored place must be kept.
bool WindowsKnowTheirPlace();

// The window that a new dialog belongs to; null if none is shown. Without an owner the dialog could go behind it.
QWidget* OwnerOfDialog();

// The screen's size in physical pixels.
QSize NativeSize(const QScreen& screen);
