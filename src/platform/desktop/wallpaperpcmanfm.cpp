// LXDE and LXQt, whose file manager draws the desktop.
#include "platform/desktop/wallpaperbackend.h"

#include <array>

namespace {
// By Fit.
constexpr std::array<const char*, 6> Modes{"center", "tile", "stretch", "fit", "crop", "screen"};

bool IsHere(const DesktopSession& session)
{
    return session.Is("LXDE") || session.Is("LXQt");
}

WallpaperAnswer Show(const DesktopSession& session, const DesktopPicture& picture, const QDeadlineTimer& until)
{
    const bool clears = picture.Path == wallpaper::None;
    const QString mode = QLatin1StringView(clears ? "color" : Modes[std::size_t(picture.Fit)]);
    QStringList arguments{u"--wallpaper-mode="_s + mode};
    if (!clears) arguments.prepend(u"--set-wallpaper="_s + picture.Path);
    const QString program = session.Is("LXQt") ? u"pcmanfm-qt"_s : u"pcmanfm"_s;
    return RunForWallpaper(program, arguments, until) ? WallpaperAnswer::Done : WallpaperAnswer::Failed;
}

// The file manager takes a picture but tells none.
std::optional<DesktopPicture> Present(const DesktopSession&, const QDeadlineTimer&)
{
    return std::nullopt;
}
} // namespace

const WallpaperBackend PcmanfmWallpaper = {IsHere, Show, Present};
