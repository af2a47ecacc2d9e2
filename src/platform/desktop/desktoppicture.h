// A picture on the desktop's ground: which one, and how it is laid out.
#pragma once

#include <QString>

namespace wallpaper {
inline const QString None = u"(None)"_s;

// How a picture that is not of the screen's size is laid on it. The numbers are kept in WIN.INI.
enum class Fit
{
    Centered = 0,
    Tiled = 1,
    Stretched = 2,
    Scaled = 3, // as large as fits, with its proportions
    Zoomed = 4, // fills the screen, with its proportions
    Spanned = 5 // over all screens together
};
} // namespace wallpaper

struct DesktopPicture
{
    QString Path; // None if there is no picture
    wallpaper::Fit Fit = wallpaper::Fit::Centered;
    bool operator==(const DesktopPicture&) const = default;
};
