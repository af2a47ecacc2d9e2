#include "platform/desktop/wallpaper.h"

#include "platform/desktop/wallpaperbackend.h"

#include <QFileInfo>
#include <QProcess>
#include <QUrl>

#include <algorithm>
#include <array>
#include <vector>

namespace {
constexpr int SetDeskWallpaper = 20;
constexpr int LongestWait = 2000; // milliseconds, for all that is no person
constexpr int KillTime = 100;     // until a killed command is gone

// In the order in which they are tried. A desktop's own settings come before the portal, which may ask and cannot
// clear. So does the root where nothing lies over it: there a portal writes the settings of a desktop that does not
// run.
const WallpaperBackend* const DesktopsOwn[] = {&GSettingsWallpaper, &PlasmaWallpaper, &XfceWallpaper,
                                               &PcmanfmWallpaper};
const WallpaperBackend* const WithoutDesktop[] = {&RootWallpaper};

using Backends = std::vector<const WallpaperBackend*>;

template <typename Table>
void AddThoseHere(Backends& ways, const Table& table, const DesktopSession& session)
{
    for (const WallpaperBackend* backend : table) {
        if (backend->IsHere(session)) ways.push_back(backend);
    }
}

// What a sandboxed program finds around it are the sandbox's settings.
Backends WaysOf(const DesktopSession& session)
{
    Backends ways;
    if (!session.IsSandboxed) AddThoseHere(ways, DesktopsOwn, session);
    if (!session.IsSandboxed && ways.empty()) AddThoseHere(ways, WithoutDesktop, session);
    AddThoseHere(ways, std::array{&PortalWallpaper}, session);
    return ways;
}

QDeadlineTimer Sooner(const QDeadlineTimer& until)
{
    return std::min(until, QDeadlineTimer(LongestWait));
}

// A desktop that is told the path that it has already keeps the picture that it has loaded.
WallpaperAnswer ShowAnew(const WallpaperBackend& way, const DesktopSession& session, const DesktopPicture& picture,
                         const QDeadlineTimer& until)
{
    const QDeadlineTimer soon = Sooner(until);
    const std::optional<DesktopPicture> present = way.Present(session, soon);
    if (present && present->Path == picture.Path && picture.Path != wallpaper::None)
        way.Show(session, {wallpaper::None}, soon);
    return way.Show(session, picture, way.AsksPerson ? until : soon);
}

// An address or a theme's own name is left for the desktop to judge.
bool IsMissingFile(const QString& path)
{
    return path.startsWith(u'/') && !QFileInfo::exists(path);
}
} // namespace

DesktopSession DesktopSession::Present()
{
    const QString names = qEnvironmentVariable("XDG_CURRENT_DESKTOP");
    const bool isSandboxed = QFileInfo::exists(u"/.flatpak-info"_s) || qEnvironmentVariableIsSet("FLATPAK_ID") ||
                             qEnvironmentVariableIsSet("SNAP_NAME");
    return {names.split(u':', Qt::SkipEmptyParts), isSandboxed};
}

std::optional<DesktopPicture> PresentWallpaper(const QDeadlineTimer& until)
{
    const DesktopSession session = DesktopSession::Present();
    const Backends ways = WaysOf(session);
    return ways.empty() ? std::nullopt : ways.front()->Present(session, Sooner(until));
}

std::optional<DesktopPicture> KeptWallpaper(const QDeadlineTimer& until)
{
    const Backends ways = WaysOf(DesktopSession::Present());
    return ways.empty() || !ways.front()->IsKept ? std::nullopt : PresentWallpaper(until);
}

bool SystemParametersInfoA(int action, int, const DesktopPicture& picture, int, const QDeadlineTimer& until)
{
    if (action != SetDeskWallpaper || IsMissingFile(picture.Path)) return false;
    const DesktopSession session = DesktopSession::Present();
    for (const WallpaperBackend* way : WaysOf(session)) {
        const WallpaperAnswer answer = ShowAnew(*way, session, picture, until);
        if (answer != WallpaperAnswer::Failed) return answer == WallpaperAnswer::Done;
    }
    return false;
}

std::optional<QString> RunForWallpaper(const QString& program, const QStringList& arguments,
                                       const QDeadlineTimer& until)
{
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments, QIODevice::ReadOnly);
    if (process.waitForFinished(int(until.remainingTime())) && process.exitStatus() == QProcess::NormalExit &&
        process.exitCode() == 0) {
        return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
    }
    process.kill();
    process.waitForFinished(KillTime);
    return std::nullopt;
}

QString WallpaperAddress(const QString& path)
{
    return path.startsWith(u'/') ? QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded()) : path;
}

QString WallpaperPath(const QString& address)
{
    const QUrl url(address);
    return url.isLocalFile() ? url.toLocalFile() : address;
}
