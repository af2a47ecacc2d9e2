// The picture on the desktop's ground, whoever draws it: GNOME and its kin, Plasma, Xfce, a portal, or nobody, so that
// it is painted on the X root window. Knows no planner.
#pragma once

#include "platform/desktop/desktoppicture.h"

#include <QDeadlineTimer>

#include <optional>

namespace wallpaper {
// A ground that begins each session without a picture counts or not: having none says nothing there of what somebody
// wanted.
enum class Counts
{
    Always,
    IfKept
};
} // namespace wallpaper

// What the desktop shows now; empty where that cannot be told, or does not count.
std::optional<DesktopPicture> PresentWallpaper(const QDeadlineTimer& until,
                                               wallpaper::Counts counts = wallpaper::Counts::Always);

// Action 20: the desktop takes this picture, or none for "(None)", and loads it anew if it shows it already. False if
// the desktop did not take it, or if a person who was asked refused; nobody is asked for longer than until the
// deadline, and nothing else takes longer than two seconds.
bool SystemParametersInfoA(int action, int parameter, const DesktopPicture& picture, int flags,
                           const QDeadlineTimer& until);
