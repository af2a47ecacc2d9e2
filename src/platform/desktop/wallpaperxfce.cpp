// Xfce, which keeps a picture and a style for each monitor and workspace.
#include "platform/desktop/wallpaperbackend.h"

#include <QGuiApplication>
#include <QScreen>

#include <array>

using wallpaper::Fit;

namespace {
const QString Query = QStringLiteral("xfconf-query");
const QString PictureKey = QStringLiteral("/last-image");
const QString StyleKey = QStringLiteral("/image-style");

// By Fit; 0 shows no picture.
constexpr std::array Styles{1, 2, 3, 4, 5, 6};

std::optional<QString> Run(const QStringList& arguments, const QDeadlineTimer& until)
{
    return RunForWallpaper(Query, QStringList{QStringLiteral("-c"), QStringLiteral("xfce4-desktop")} + arguments,
                           until);
}

// The places that hold a picture: "/backdrop/screen0/monitorHDMI-1/workspace0". A desktop whose picture nobody has
// changed yet has none, so that they are named after the monitors.
QStringList Places(const QDeadlineTimer& until)
{
    QStringList places;
    for (const QString& key : Run({QStringLiteral("-l")}, until).value_or(QString()).split(u'\n')) {
        if (key.startsWith(u"/backdrop/") && key.endsWith(PictureKey)) places += key.chopped(PictureKey.size());
    }
    if (!places.isEmpty()) return places;
    for (const QScreen* screen : QGuiApplication::screens())
        places += QStringLiteral("/backdrop/screen0/monitor%1/workspace0").arg(screen->name());
    return places;
}

std::optional<QString> Get(const QString& key, const QDeadlineTimer& until)
{
    return Run({QStringLiteral("-p"), key}, until);
}

bool Set(const QString& key, const char* type, const QString& value, const QDeadlineTimer& until)
{
    return Run({QStringLiteral("-p"), key, QStringLiteral("-n"), QStringLiteral("-t"), QLatin1StringView(type),
                QStringLiteral("-s"), value},
               until)
        .has_value();
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
    const int style = Get(place + StyleKey, until).value_or(QStringLiteral("5")).toInt();
    if (style == 0 || path->isEmpty()) return DesktopPicture{wallpaper::None};
    const auto fit = std::find(Styles.begin(), Styles.end(), style);
    return DesktopPicture{*path, fit == Styles.end() ? Fit::Zoomed : Fit(fit - Styles.begin())};
}
} // namespace

const WallpaperBackend XfceWallpaper = {IsHere, Show, Present};
