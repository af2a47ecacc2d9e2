// A screen's size in its own pixels.
#pragma once

#include <QScreen>

#include <cmath>

// The toolkit tells whole logical pixels only, of which a fraction of the screen's own may be lost or added. Screens
// are of an even number of pixels, so the nearest one is meant.
inline QSize NativeSize(const QScreen& screen)
{
    const auto native = [&](int logical) { return 2 * int(std::lround(logical * screen.devicePixelRatio() / 2)); };
    return {native(screen.size().width()), native(screen.size().height())};
}
