#include "platform/desktop/windowplace.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace {
bool TitleBarShows(const QRect& window)
{
    constexpr int Grip = 40;
    const QRect title(window.x(), window.y() - Grip / 2, window.width(), Grip);
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect visible = title.intersected(screen->availableGeometry());
        if (visible.width() >= Grip && visible.height() >= Grip / 2) return true;
    }
    return false;
}
} // namespace

QRect ReachablePlace(QRect window, const QSize& smallest)
{
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    // A size larger than all screens is a broken setting.
    const QRect allScreens = QGuiApplication::primaryScreen()->virtualGeometry();
    const QSize largest = WindowsKnowTheirPlace() ? allScreens.size() : area.size() * 9 / 10;
    window.setSize(window.size().boundedTo(largest).expandedTo(smallest));
    if (TitleBarShows(window)) return window;
    window.setSize(window.size().boundedTo(area.size()));
    window.moveCenter(area.center());
    return window;
}

bool WindowsKnowTheirPlace()
{
    return !QGuiApplication::platformName().startsWith("wayland"_L1);
}

// On Wayland no window is active for a moment after a dialog has closed. A window that has just opened may not be
// active yet, and would then stand in front of its own dialog.
QWidget* OwnerOfDialog()
{
    if (QWidget* const modal = QApplication::activeModalWidget()) return modal;
    if (QWidget* const active = QApplication::activeWindow()) return active;
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto shown = std::ranges::find_if(windows, [](const QWidget* window) {
        return window->windowType() == Qt::Window && !window->parent() && window->isVisible() && !window->isMinimized();
    });
    return shown == windows.end() ? nullptr : *shown;
}

// The toolkit rounds to logical pixels. Screens have even numbers of pixels, so the nearest even one is right.
QSize NativeSize(const QScreen& screen)
{
    const auto native = [&](int logical) { return 2 * int(std::lround(logical * screen.devicePixelRatio() / 2)); };
    return {native(screen.size().width()), native(screen.size().height())};
}
