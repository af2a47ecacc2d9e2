// Xfce, which keeps a picture and a style for each monitor and workspace.
#include "platform/desktop/wallpaperbackend.h"

#include <QGuiApplication>
#include <QScreen>

#include <array>

using wallpaper::Fit;

namespace {
const QString Query = u"xfconf-query"_s;
const QString PictureKey = u"/last-image"_s;
const QString StyleKey = u"/image-style"_s;

// By Fit; 0 shows no picture.
constexpr std::array Styles{1, 2, 3, 4, 5, 6};

std::optional<QString> Run(const QStringList& arguments, const QDeadlineTimer& until)
{
    return RunForWallpaper(Query, QStringList{u"-c"_s, u"xfce4-desktop"_s} + arguments, until);
}

// The places that hold a picture: "/backdrop/screen0/monitorHDMI-1/workspace0". A desktop whose picture nobody has
// changed yet has none, so that they are named after the monitors.
QStringList Places(const QDeadlineTimer& until)
{
    QStringList places;
    for (const QString& key : Run({u"-l"_s}, until).value_or(QString()).split(u'\n')) {
        if (key.startsWith(u"/backdrop/") && key.endsWith(PictureKey)) places += key.chopped(PictureKey.size());
    }
    if (!places.isEmpty()) return places;
    for (const QScreen* screen : QGuiApplication::screens())
        places += u"/backdrop/screen0/monitor%1/workspace0"_s.arg(screen->name());
    return places;
}

std::optional<QString> Get(const QString& key, const QDeadlineTimer& until)
{
    return Run({u"-p"_s, key}, until);
}

bool Set(const QString& key, const char* type, const QString& value, const QDeadlineTimer& until)
{
    return Run({u"-p"_s, key, u"-n"_s, u"-t"_s, QLatin1StringView(type), u"-s"_s, value}, until).has_value();
}

bool IsHere(const DesktopSession& session)
{
    return session.Is("XFCE");
}

WallpaperAnswer Show(const DesktopSession&, const DesktopPicture& picture, const QDeadlineTimer& until)
{
    const bool clears = picture.Path == wallpaper::None;
    const QString style = QString::number(clears ? 0 : Styles[std::size_t(picture.Fit)]);
    for (const QString& place : Places(until)) {
        if (!clears && !Set(place + PictureKey, "string", picture.Path, until)) return WallpaperAnswer::Failed;
        if (!Set(place + StyleKey, "int", style, until)) return WallpaperAnswer::Failed;
    }
    return WallpaperAnswer::Done;
}

std::optional<DesktopPicture> Present(const DesktopSession&, const QDeadlineTimer& until)
{
    const QString place = Places(until).value(0);
    const std::optional<QString> path = Get(place + PictureKey, until);
    if (!path) return std::nullopt;
    const int style = Get(place + StyleKey, until).value_or(u"5"_s).toInt();
    if (style == 0 || path->isEmpty()) return DesktopPicture{wallpaper::None};
    const auto fit = std::find(Styles.begin(), Styles.end(), style);
    return DesktopPicture{*path, fit == Styles.end() ? Fit::Zoomed : Fit(fit - Styles.begin())};
}
} // namespace

const WallpaperBackend XfceWallpaper = {IsHere, Show, Present};
