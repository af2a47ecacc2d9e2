#include "wallpaper/desktopkeys.h"

#include "platform/profile/profile.h"
#include "settings/settings.h"

#include <algorithm>

namespace {
const QString WinIni = u"WIN.INI"_s;
const QString Section = u"Desktop"_s;
const QString WallpaperKey = u"wallpaper"_s;
const QString TileKey = u"TileWallPaper"_s;
const QString StyleKey = u"WallpaperStyle"_s;
} // namespace

DesktopKeys DesktopKeys::Of(const DesktopPicture& picture)
{
    return {picture.Path, picture.Fit == wallpaper::Fit::Tiled ? 1 : 0, int(picture.Fit)};
}

DesktopPicture DesktopKeys::Picture() const
{
    using wallpaper::Fit;
    if (tileWallPaper == 1) return {wallpaper, Fit::Tiled};
    return {wallpaper, Fit(std::clamp(style, int(Fit::Centered), int(Fit::Spanned)))};
}

DesktopKeys ReadDesktopKeys()
{
    return {GetPrivateProfileStringA(Section, WallpaperKey, wallpaper::None, settings::PathSize, WinIni),
            GetPrivateProfileIntA(Section, TileKey, 0, WinIni), GetPrivateProfileIntA(Section, StyleKey, 0, WinIni)};
}

void WriteDesktopKeys(const DesktopKeys& keys)
{
    const ProfileBatch oneReplacement(WinIni);
    WritePrivateProfileStringA(Section, WallpaperKey, keys.wallpaper, WinIni);
    WritePrivateProfileStringA(Section, TileKey, QString::number(keys.tileWallPaper), WinIni);
    WritePrivateProfileStringA(Section, StyleKey, QString::number(keys.style), WinIni);
}

void TakeOver(const std::optional<DesktopPicture>& shown)
{
    if (shown) WriteDesktopKeys(DesktopKeys::Of(*shown));
}

DesktopKeys ReadPreviousKeys()
{
    return {Read(settings::PreviousWallPaper), Read(settings::PreviousTileStyle),
            Read(settings::PreviousWallpaperStyle)};
}

void WritePreviousKeys(const DesktopKeys& keys)
{
    const ProfileBatch oneReplacement(settings::PlannerIni.toString());
    Write(settings::PreviousWallPaper, keys.wallpaper);
    Write(settings::PreviousTileStyle, keys.tileWallPaper);
    Write(settings::PreviousWallpaperStyle, keys.style);
}
