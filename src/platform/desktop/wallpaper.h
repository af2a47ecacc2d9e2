// The picture on the desktop's ground, whoever draws it: GNOME and its kin, Plasma, Xfce, a portal, or nobody, so that
// it is painted on the X root window. Knows no planner.
#pragma once

#include <QDeadlineTimer>
#include <QString>

#include <optional>

namespace wallpaper {
inline const QString None = QStringLiteral("(None)");

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

// What the desktop shows now; empty where that cannot be told.
std::optional<DesktopPicture> PresentWallpaper(const QDeadlineTimer& until);

// Action 20: the desktop takes this picture, or none for "(None)", and loads it anew if it shows it already. False if
// the desktop did not take it, or if a person who was asked refused; nobody is asked for longer than until the
// deadline, and nothing else takes longer than two seconds.
bool SystemParametersInfoA(int action, int parameter, const DesktopPicture& picture, int flags,
                           const QDeadlineTimer& until);
