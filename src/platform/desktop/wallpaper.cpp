#include "platform/desktop/wallpaper.h"

#include "platform/desktop/wallpaperbackend.h"

#include <QFileInfo>
#include <QProcess>
#include <QUrl>

namespace {
constexpr int SetDeskWallpaper = 20;
constexpr int LongestWait = 2000; // milliseconds, unless the user is asked
constexpr int KillTime = 100;     // milliseconds for a killed command to end

const WallpaperBackend* const DesktopsOwn[] = {&SettingsWallpaper, &PlasmaWallpaper, &PcmanfmWallpaper};

// In the order of trial. A desktop's own settings precede the portal, which may ask and cannot clear. So does the root
// if there is no desktop: a portal would write settings that nothing reads. In a sandbox the settings are the
// sandbox's.
std::vector<const WallpaperBackend*> WaysOf(const DesktopSession& session)
{
    std::vector<const WallpaperBackend*> ways;
    const auto addIfHere = [&](const WallpaperBackend* way) {
        if (way->IsHere(session)) ways.push_back(way);
    };
    if (!session.IsSandboxed) std::ranges::for_each(DesktopsOwn, addIfHere);
    if (!session.IsSandboxed && ways.empty()) addIfHere(&RootWallpaper);
    addIfHere(&PortalWallpaper);
    return ways;
}

QDeadlineTimer Sooner(const QDeadlineTimer& until)
{
    return std::min(until, QDeadlineTimer(LongestWait));
}

std::optional<DesktopPicture> Shown(const WallpaperBackend& way, const DesktopSession& session,
                                    const QDeadlineTimer& until)
{
    return way.Present ? way.Present(session, Sooner(until)) : std::nullopt;
}

// Clears first if the desktop shows this path, since it would keep the loaded picture.
bool ShowAnew(const WallpaperBackend& way, const DesktopSession& session, const DesktopPicture& picture,
              const QDeadlineTimer& until)
{
    const QDeadlineTimer soon = Sooner(until);
    const std::optional<DesktopPicture> present = Shown(way, session, soon);
    if (present && present->Path == picture.Path && picture.Path != wallpaper::None)
        way.Show(session, {wallpaper::None}, soon);
    return way.Show(session, picture, way.AsksPerson ? until : soon);
}

// Only absolute paths are checked: the desktop judges URLs and names of themes.
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

std::optional<DesktopPicture> PresentWallpaper(const QDeadlineTimer& until, wallpaper::Counts counts)
{
    const DesktopSession session = DesktopSession::Present();
    const auto ways = WaysOf(session);
    if (ways.empty() || (counts == wallpaper::Counts::IfKept && !ways.front()->IsKept)) return std::nullopt;
    return Shown(*ways.front(), session, until);
}

bool SystemParametersInfoA(int action, int, const DesktopPicture& picture, int, const QDeadlineTimer& until)
{
    if (action != SetDeskWallpaper || IsMissingFile(picture.Path)) return false;
    const DesktopSession session = DesktopSession::Present();
    return std::ranges::any_of(WaysOf(session),
                               [&](const auto* way) { return ShowAnew(*way, session, picture, until); });
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

wallpaper::Fit FitNames::Named(const QString& name) const
{
    const auto found = std::ranges::find_if(Names, [&](const char* known) { return name == QLatin1StringView(known); });
    return found == Names.end() ? wallpaper::Fit::Zoomed : wallpaper::Fit(found - Names.begin());
}
