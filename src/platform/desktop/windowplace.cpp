#include "platform/desktop/windowplace.h"

#include <QGuiApplication>
#include <QScreen>

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
    window.setSize(window.size().boundedTo(allScreens.size()).expandedTo(smallest));
    if (TitleBarShows(window)) return window;
    window.setSize(window.size().boundedTo(area.size()));
    window.moveCenter(area.center());
    return window;
}

bool WindowsKnowTheirPlace()
{
    return !QGuiApplication::platformName().startsWith("wayland"_L1);
}

// The toolkit rounds to logical pixels. Screens have even numbers of pixels, so the nearest even one is right.
QSize NativeSize(const QScreen& screen)
{
    const auto native = [&](int logical) { return 2 * int(std::lround(logical * screen.devicePixelRatio() / 2)); };
    return {native(screen.size().width()), native(screen.size().height())};
}
