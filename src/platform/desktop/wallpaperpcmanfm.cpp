// LXDE and LXQt: their file manager draws the desktop. The present picture cannot be read.
#include "platform/desktop/wallpaperbackend.h"

namespace {
constexpr FitNames Modes{{"center", "tile", "stretch", "fit", "crop", "screen"}};

bool IsHere(const DesktopSession& session)
{
    return session.Is("LXDE") || session.Is("LXQt");
}

bool Show(const DesktopSession& session, const DesktopPicture& picture, const QDeadlineTimer& until)
{
    const bool clears = picture.Path == wallpaper::None;
    QStringList arguments{u"--wallpaper-mode="_s + (clears ? u"color"_s : Modes.Of(picture.Fit))};
    if (!clears) arguments.prepend(u"--set-wallpaper="_s + picture.Path);
    return RunForWallpaper(session.Is("LXQt") ? u"pcmanfm-qt"_s : u"pcmanfm"_s, arguments, until).has_value();
}
} // namespace

const WallpaperBackend PcmanfmWallpaper = {IsHere, Show};
