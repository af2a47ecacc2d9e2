// Desktops whose picture is a setting that a command reads and writes.
#include "platform/desktop/wallpaperbackend.h"

#include <QGuiApplication>
#include <QRegularExpression>
#include <QScreen>

namespace {
struct Store
{
    std::optional<QString> (*Get)(const QString& key, const QDeadlineTimer& until);
    bool (*Set)(const QString& key, const QString& value, const QDeadlineTimer& until);
    const char* FitKey;
    const char* NoFit; // value for no picture
    FitNames Fits;
};

struct Desktop
{
    const char* Name;
    const Store& How;
    const char* Schema; // prefix of the keys; empty for Xfce
    const char* PictureKey;
    const char* DarkKey = nullptr; // picture of the dark look; the schema may not have it
    bool HoldsAddresses = true;    // URLs instead of paths
};

// gsettings quotes texts and escapes with backslashes.
QString Quoted(QString text)
{
    return u'\'' + text.replace(u'\\', u"\\\\"_s).replace(u'\'', u"\\'"_s) + u'\'';
}

QString Unquoted(const QString& printed)
{
    static const QRegularExpression Escaped(u"\\\\(.)"_s);
    return printed.mid(1, printed.size() - 2).replace(Escaped, u"\\1"_s);
}

std::optional<QString> GSettingsGet(const QString& key, const QDeadlineTimer& until)
{
    const auto printed = RunForWallpaper(u"gsettings"_s, QStringList(u"get"_s) + key.split(u' '), until);
    return printed ? std::optional(Unquoted(*printed)) : std::nullopt;
}

// Reads the value back: without its store the command loses it and reports no error.
bool GSettingsSet(const QString& key, const QString& value, const QDeadlineTimer& until)
{
    const QStringList arguments = QStringList(u"set"_s) + key.split(u' ') + QStringList(Quoted(value));
    return RunForWallpaper(u"gsettings"_s, arguments, until) && GSettingsGet(key, until) == value;
}

std::optional<QString> XfconfRun(const QStringList& arguments, const QDeadlineTimer& until)
{
    return RunForWallpaper(u"xfconf-query"_s, QStringList{u"-c"_s, u"xfce4-desktop"_s} + arguments, until);
}

std::optional<QString> XfconfGet(const QString& key, const QDeadlineTimer& until)
{
    return XfconfRun({u"-p"_s, key}, until);
}

bool XfconfSet(const QString& key, const QString& value, const QDeadlineTimer& until)
{
    const QString type = key.endsWith("style"_L1) ? u"int"_s : u"string"_s;
    return XfconfRun({u"-p"_s, key, u"-n"_s, u"-t"_s, type, u"-s"_s, value}, until).has_value();
}

constexpr Store GSettings = {GSettingsGet, GSettingsSet, "picture-options", "none",
                             FitNames{{"centered", "wallpaper", "stretched", "scaled", "zoom", "spanned"}}};
constexpr Store Xfconf = {XfconfGet, XfconfSet, "/image-style", "0", FitNames{{"1", "2", "3", "4", "5", "6"}}};

constexpr const char* Gnome = "org.gnome.desktop.background ";
constexpr const char* Cinnamon = "org.cinnamon.desktop.background ";
constexpr const char* DarkUri = "picture-uri-dark";

constexpr Desktop Desktops[] = {
    {"X-Cinnamon", GSettings, Cinnamon, "picture-uri"},
    {"Cinnamon", GSettings, Cinnamon, "picture-uri"},
    {"MATE", GSettings, "org.mate.background ", "picture-filename", nullptr, false},
    {"Deepin", GSettings, "com.deepin.wrap.gnome.desktop.background ", "picture-uri"},
    {"GNOME", GSettings, Gnome, "picture-uri", DarkUri},
    {"GNOME-Flashback", GSettings, Gnome, "picture-uri", DarkUri},
    {"GNOME-Classic", GSettings, Gnome, "picture-uri", DarkUri},
    {"Unity", GSettings, Gnome, "picture-uri", DarkUri},
    {"Budgie", GSettings, Gnome, "picture-uri", DarkUri},
    {"Pantheon", GSettings, Gnome, "picture-uri", DarkUri},
    {"XFCE", Xfconf, "", "/last-image", nullptr, false},
};

const Desktop* DesktopOf(const DesktopSession& session)
{
    const auto* const found = std::ranges::find_if(Desktops, [&](const auto& row) { return session.Is(row.Name); });
    return found == std::end(Desktops) ? nullptr : found;
}

// Xfce has a picture per monitor and workspace: "/backdrop/screen0/monitorHDMI-1/workspace0". If none has been set yet,
// the monitors give the names.
QStringList PlacesOfXfce(const QString& pictureKey, const QDeadlineTimer& until)
{
    QStringList places;
    for (const QString& key : XfconfRun({u"-l"_s}, until).value_or(QString()).split(u'\n')) {
        if (key.startsWith("/backdrop/"_L1) && key.endsWith(pictureKey)) places += key.chopped(pictureKey.size());
    }
    if (!places.isEmpty()) return places;
    for (const QScreen* screen : QGuiApplication::screens())
        places += u"/backdrop/screen0/monitor%1/workspace0"_s.arg(screen->name());
    return places;
}

// The key prefixes of all pictures that the desktop shows.
QStringList PlacesOf(const Desktop& desktop, const QDeadlineTimer& until)
{
    const QString schema = QString::fromLatin1(desktop.Schema);
    return schema.isEmpty() ? PlacesOfXfce(QString::fromLatin1(desktop.PictureKey), until) : QStringList(schema);
}

bool IsHere(const DesktopSession& session)
{
    return DesktopOf(session) != nullptr;
}

bool Show(const DesktopSession& session, const DesktopPicture& picture, const QDeadlineTimer& until)
{
    const Desktop& desktop = *DesktopOf(session);
    const Store& store = desktop.How;
    const bool clears = picture.Path == wallpaper::None;
    const QString value = desktop.HoldsAddresses ? WallpaperAddress(picture.Path) : picture.Path;
    const QString fit = clears ? QString::fromLatin1(store.NoFit) : store.Fits.Of(picture.Fit);
    const auto set = [&](const QString& place, const char* key, const QString& text) {
        return store.Set(place + QLatin1StringView(key), text, until);
    };
    for (const QString& place : PlacesOf(desktop, until)) {
        if (!clears && !set(place, desktop.PictureKey, value)) return false;
        if (!clears && desktop.DarkKey) set(place, desktop.DarkKey, value);
        if (!set(place, store.FitKey, fit)) return false;
    }
    return true;
}

std::optional<DesktopPicture> Present(const DesktopSession& session, const QDeadlineTimer& until)
{
    const Desktop& desktop = *DesktopOf(session);
    const QString place = PlacesOf(desktop, until).value(0);
    const auto value = desktop.How.Get(place + QLatin1StringView(desktop.PictureKey), until);
    if (!value) return std::nullopt;
    const QString fit = desktop.How.Get(place + QLatin1StringView(desktop.How.FitKey), until).value_or(QString());
    if (value->isEmpty() || fit == QLatin1StringView(desktop.How.NoFit)) return DesktopPicture{wallpaper::None};
    return DesktopPicture{WallpaperPath(*value), desktop.How.Fits.Named(fit)};
}
} // namespace

const WallpaperBackend SettingsWallpaper = {IsHere, Show, Present};
