// The desktop's picture on GNOME and relatives, Plasma, Xfce, by a portal, or on the X root window. Knows no planner.
#pragma once

#include "platform/desktop/desktoppicture.h"

#include <QDeadlineTimer>

#include <optional>

namespace wallpaper {
// Whether the X root counts. It has no picture at the start of a session, which does not tell what the user wants.
enum class Counts
{
    Always,
    IfKept
};
} // namespace wallpaper

// The desktop's present picture; empty if it is unknown or does not count.
std::optional<DesktopPicture> PresentWallpaper(const QDeadlineTimer& until,
                                               wallpaper::Counts counts = wallpaper::Counts::Always);

// Action 20: shows the picture, or none for "(None)". A picture that is shown already is loaded again. False if the
// desktop does not take it or the user refuses. The user is asked until the deadline at most; everything else is
// limited to two seconds.
bool SystemParametersInfoA(int action, int parameter, const DesktopPicture& picture, int flags,
                           const QDeadlineTimer& until);
