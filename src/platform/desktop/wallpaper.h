// Sets the desktop's picture on GNOME and similar desktops, Plasma, Xfce, through a portal, or by painting the X root
// window.
#pragma once

#include "platform/desktop/desktoppicture.h"

#include <QDeadlineTimer>

#include <optional>

namespace wallpaper {
// Whether to count a desktop that starts each session without a picture. There, no picture does not mean that somebody
// chose none.
enum class Counts
{
    Always,
    IfKept
};
} // namespace wallpaper

// The desktop's current picture; empty if unknown or not counted.
std::optional<DesktopPicture> PresentWallpaper(const QDeadlineTimer& until,
                                               wallpaper::Counts counts = wallpaper::Counts::Always);

// Action 20: the desktop takes this picture, or none for "(None)", and loads it again if it shows it already. False if
// the desktop did not take it, or if the person was asked and refused. Only that question may take until the deadline;
// all else takes two seconds at most.
bool SystemParametersInfoA(int action, int parameter, const DesktopPicture& picture, int flags,
                           const QDeadlineTimer& until);
