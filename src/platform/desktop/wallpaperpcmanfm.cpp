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
    QStringList arguments{QStringLiteral("--wallpaper-mode=") + mode};
    if (!clears) arguments.prepend(QStringLiteral("--set-wallpaper=") + picture.Path);
    const QString program = session.Is("LXQt") ? QStringLiteral("pcmanfm-qt") : QStringLiteral("pcmanfm");
    return RunForWallpaper(program, arguments, until) ? WallpaperAnswer::Done : WallpaperAnswer::Failed;
}

// The file manager takes a picture but tells none.
std::optional<DesktopPicture> Present(const DesktopSession&, const QDeadlineTimer&)
{
    return std::nullopt;
}
} // namespace

const WallpaperBackend PcmanfmWallpaper = {IsHere, Show, Present};
