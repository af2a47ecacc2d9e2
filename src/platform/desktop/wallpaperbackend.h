// One way to the desktop's ground. The ways stand in wallpaper.cpp in the order in which they are tried.
#pragma once

#include "platform/desktop/desktoppicture.h"

#include <QDeadlineTimer>
#include <QStringList>

#include <optional>

// Where the program runs, as the environment tells.
struct DesktopSession
{
    QStringList Desktops; // its names, "ubuntu" and "GNOME" for example
    bool IsSandboxed = false;

    static DesktopSession Present();
    bool Is(const char* name) const { return Desktops.contains(QString::fromLatin1(name), Qt::CaseInsensitive); }
};

enum class WallpaperAnswer
{
    Done,
    Failed, // another way may still do it
    Refused // by a person: no other way is to be tried
};

struct WallpaperBackend
{
    bool (*IsHere)(const DesktopSession& session);
    // Done only if the desktop is known to have taken it.
    WallpaperAnswer (*Show)(const DesktopSession& session, const DesktopPicture& picture, const QDeadlineTimer& until);
    std::optional<DesktopPicture> (*Present)(const DesktopSession& session, const QDeadlineTimer& until);
    bool AsksPerson = false; // and so may take until the deadline of the call
    bool IsKept = true;      // what it shows stays for the next session
};

extern const WallpaperBackend GSettingsWallpaper; // GNOME, Cinnamon, MATE and those that share their settings
extern const WallpaperBackend PlasmaWallpaper;
extern const WallpaperBackend XfceWallpaper;
extern const WallpaperBackend PcmanfmWallpaper; // LXDE and LXQt
extern const WallpaperBackend PortalWallpaper;  // the service that a sandboxed program asks
extern const WallpaperBackend RootWallpaper;    // the X root window, where no desktop lies over it

// The text that the program has printed; empty if it is not installed, did not end in time, or ended with an error.
std::optional<QString> RunForWallpaper(const QString& program, const QStringList& arguments,
                                       const QDeadlineTimer& until);

// "file:///..." of a path; other addresses stay as they are. And back.
QString WallpaperAddress(const QString& path);
QString WallpaperPath(const QString& address);
