// One way to set the desktop's picture. wallpaper.cpp lists the ways in the order in which they are tried.
#pragma once

#include "platform/desktop/desktoppicture.h"

#include <QDeadlineTimer>
#include <QStringList>

#include <array>
#include <optional>

// The desktop session, from the environment.
struct DesktopSession
{
    QStringList Desktops; // names such as "ubuntu" and "GNOME"
    bool IsSandboxed = false;

    static DesktopSession Present();
    bool Is(const char* name) const { return Desktops.contains(QString::fromLatin1(name), Qt::CaseInsensitive); }
};

struct WallpaperBackend
{
    bool (*IsHere)(const DesktopSession& session);
    // True if the desktop is known to have taken the picture.
    bool (*Show)(const DesktopSession& session, const DesktopPicture& picture, const QDeadlineTimer& until);
    // Null if the present picture cannot be read.
    std::optional<DesktopPicture> (*Present)(const DesktopSession& session, const QDeadlineTimer& until) = nullptr;
    bool AsksPerson = false; // may use the whole deadline
    bool IsKept = true;      // the picture stays in the next session
};

extern const WallpaperBackend SettingsWallpaper; // GNOME, Cinnamon, MATE and relatives; Xfce
extern const WallpaperBackend PlasmaWallpaper;
extern const WallpaperBackend PcmanfmWallpaper; // LXDE and LXQt
extern const WallpaperBackend PortalWallpaper;  // the service for sandboxed programs
extern const WallpaperBackend RootWallpaper;    // the X root window, if no desktop covers it

// The program's output. Empty if it is not installed, fails, or does not end in time.
std::optional<QString> RunForWallpaper(const QString& program, const QStringList& arguments,
                                       const QDeadlineTimer& until);

// Converts a path to a "file:///..." URL and back; other addresses are unchanged.
QString WallpaperAddress(const QString& path);
QString WallpaperPath(const QString& address);

// A desktop's names for Fit.
struct FitNames
{
    std::array<const char*, 6> Names; // by Fit

    QString Of(wallpaper::Fit fit) const { return QString::fromLatin1(Names[std::size_t(fit)]); }
    wallpaper::Fit Named(const QString& name) const; // Zoomed if unknown
};
