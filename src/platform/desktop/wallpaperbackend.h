// One way to set the desktop's picture. wallpaper.cpp lists the ways in the order of the tries.
#pragma once

#include "platform/desktop/desktoppicture.h"

#include <QDeadlineTimer>
#include <QStringList>

#include <array>
#include <optional>

// The program's desktop, by the environment.
struct DesktopSession
{
    QStringList Desktops; // the desktop's names, for example "ubuntu" and "GNOME"
    bool IsSandboxed = false;

    static DesktopSession Present();
    bool Is(const char* name) const { return Desktops.contains(QString::fromLatin1(name), Qt::CaseInsensitive); }
};

struct WallpaperBackend
{
    bool (*IsHere)(const DesktopSession& session);
    // True only if the desktop is known to have accepted the picture.
    bool (*Show)(const DesktopSession& session, const DesktopPicture& picture, const QDeadlineTimer& until);
    // Null if this way cannot read the picture.
    std::optional<DesktopPicture> (*Present)(const DesktopSession& session, const QDeadlineTimer& until) = nullptr;
    bool AsksPerson = false; // so it may take until the call's deadline
    bool IsKept = true;      // the picture stays for the next session
};

extern const WallpaperBackend SettingsWallpaper; // GNOME, Cinnamon, MATE and those that share their settings; Xfce
extern const WallpaperBackend PlasmaWallpaper;
extern const WallpaperBackend PcmanfmWallpaper; // LXDE and LXQt
extern const WallpaperBackend PortalWallpaper;  // the service that a sandboxed program asks
extern const WallpaperBackend RootWallpaper;    // the X root window, if no desktop covers it

// The program's output; empty if it is not installed, did not end in time, or ended with an error.
std::optional<QString> RunForWallpaper(const QString& program, const QStringList& arguments,
                                       const QDeadlineTimer& until);

// "file:///..." of a path; other addresses stay as they are. And back.
QString WallpaperAddress(const QString& path);
QString WallpaperPath(const QString& address);

// A desktop's names for the fits.
struct FitNames
{
    std::array<const char*, 6> Names; // in the order of Fit

    QString Of(wallpaper::Fit fit) const { return QString::fromLatin1(Names[std::size_t(fit)]); }
    wallpaper::Fit Named(const QString& name) const; // Zoomed for an unknown name
};
