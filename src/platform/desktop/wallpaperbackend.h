// One way to the desktop's ground. The ways stand in wallpaper.cpp in the order in which they are tried.
#pragma once

#include "platform/desktop/desktoppicture.h"

#include <QDeadlineTimer>
#include <QStringList>

#include <array>
#include <optional>

// Where the program runs, as the environment tells.
struct DesktopSession
{
    QStringList Desktops; // its names, "ubuntu" and "GNOME" for example
    bool IsSandboxed = false;

    static DesktopSession Present();
    bool Is(const char* name) const { return Desktops.contains(QString::fromLatin1(name), Qt::CaseInsensitive); }
};

struct WallpaperBackend
{
    bool (*IsHere)(const DesktopSession& session);
    // True only if the desktop is known to have taken it.
    bool (*Show)(const DesktopSession& session, const DesktopPicture& picture, const QDeadlineTimer& until);
    // Null if what is taken is never told.
    std::optional<DesktopPicture> (*Present)(const DesktopSession& session, const QDeadlineTimer& until) = nullptr;
    bool AsksPerson = false; // and so may take until the deadline of the call
    bool IsKept = true;      // what it shows stays for the next session
};

extern const WallpaperBackend SettingsWallpaper; // GNOME, Cinnamon, MATE and those that share their settings; Xfce
extern const WallpaperBackend PlasmaWallpaper;
extern const WallpaperBackend PcmanfmWallpaper; // LXDE and LXQt
extern const WallpaperBackend PortalWallpaper;  // the service that a sandboxed program asks
extern const WallpaperBackend RootWallpaper;    // the X root window, where no desktop lies over it

// The text that the program has printed; empty if it is not installed, did not end in time, or ended with an error.
std::optional<QString> RunForWallpaper(const QString& program, const QStringList& arguments,
                                       const QDeadlineTimer& until);

// "file:///..." of a path; other addresses stay as they are. And back.
QString WallpaperAddress(const QString& path);
QString WallpaperPath(const QString& address);

// What a desktop calls the ways to lay a picture out.
struct FitNames
{
    std::array<const char*, 6> Names; // by Fit

    QString Of(wallpaper::Fit fit) const { return QString::fromLatin1(Names[std::size_t(fit)]); }
    wallpaper::Fit Named(const QString& name) const; // Zoomed if none is called so
};
