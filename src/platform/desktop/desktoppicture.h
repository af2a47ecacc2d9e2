// The desktop's picture and its layout.
#pragma once

#include <QString>

namespace wallpaper {
inline const QString None = u"(None)"_s;

// The layout of a picture that has not the screen's size. WIN.INI stores the numbers.
enum class Fit
{
    Centered = 0,
    Tiled = 1,
    Stretched = 2,
    Scaled = 3, // as large as fits, keeping proportions
    Zoomed = 4, // fills the screen, keeping proportions
    Spanned = 5 // over all screens
};
} // namespace wallpaper

struct DesktopPicture
{
    QString Path; // None for no picture
    wallpaper::Fit Fit = wallpaper::Fit::Centered;
    bool operator==(const DesktopPicture&) const = default;
};
