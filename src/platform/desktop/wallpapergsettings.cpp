// The desktops that keep their picture in a schema of gsettings.
#include "platform/desktop/wallpaperbackend.h"

#include <array>

using wallpaper::Fit;

namespace {
const QString GSettings = u"gsettings"_s;
const QString OptionsKey = u"picture-options"_s;

struct Schema
{
    const char* Desktop;
    const char* Name;
    const char* PictureKey;
    const char* DarkKey; // of the picture for the dark look, may be missing in the schema; empty: there is no such
    bool HoldsAddresses; // "file:///..." instead of paths
};

constexpr Schema Schemas[] = {
    {"X-Cinnamon", "org.cinnamon.desktop.background", "picture-uri", "", true},
    {"Cinnamon", "org.cinnamon.desktop.background", "picture-uri", "", true},
    {"MATE", "org.mate.background", "picture-filename", "", false},
    {"Deepin", "com.deepin.wrap.gnome.desktop.background", "picture-uri", "", true},
    {"GNOME", "org.gnome.desktop.background", "picture-uri", "picture-uri-dark", true},
    {"GNOME-Flashback", "org.gnome.desktop.background", "picture-uri", "picture-uri-dark", true},
    {"GNOME-Classic", "org.gnome.desktop.background", "picture-uri", "picture-uri-dark", true},
    {"Unity", "org.gnome.desktop.background", "picture-uri", "picture-uri-dark", true},
    {"Budgie", "org.gnome.desktop.background", "picture-uri", "picture-uri-dark", true},
    {"Pantheon", "org.gnome.desktop.background", "picture-uri", "picture-uri-dark", true},
};

struct FitName
{
    Fit Value;
    const char* Name;
};

constexpr FitName FitNames[] = {{Fit::Centered, "centered"}, {Fit::Tiled, "wallpaper"}, {Fit::Stretched, "stretched"},
                                {Fit::Scaled, "scaled"},     {Fit::Zoomed, "zoom"},     {Fit::Spanned, "spanned"}};

const Schema* SchemaOf(const DesktopSession& session)
{
    for (const Schema& schema : Schemas) {
        if (session.Is(schema.Desktop)) return &schema;
    }
    return nullptr;
}

// A text as gsettings writes it and reads it: quoted, with a backslash before what would end it.
QString Quoted(QString text)
{
    return u'\'' + text.replace(u'\\', u"\\\\"_s).replace(u'\'', u"\\'"_s) + u'\'';
}

QString Unquoted(const QString& printed)
{
    QString text;
    for (qsizetype i = 1; i + 1 < printed.size(); ++i) {
        if (printed[i] == u'\\' && i + 2 < printed.size()) ++i;
        text += printed[i];
    }
    return text;
}

std::optional<QString> Get(const Schema& schema, const QString& key, const QDeadlineTimer& until)
{
    const auto printed = RunForWallpaper(GSettings, {u"get"_s, QLatin1StringView(schema.Name), key}, until);
    return printed ? std::optional(Unquoted(*printed)) : std::nullopt;
}

// What is read back counts: without its store the command forgets what it was told and still reports no error.
bool Set(const Schema& schema, const QString& key, const QString& value, const QDeadlineTimer& until)
{
    return RunForWallpaper(GSettings, {u"set"_s, QLatin1StringView(schema.Name), key, Quoted(value)}, until) &&
           Get(schema, key, until) == value;
}

bool SetPicture(const Schema& schema, const DesktopPicture& picture, const QDeadlineTimer& until)
{
    const QString value = schema.HoldsAddresses ? WallpaperAddress(picture.Path) : picture.Path;
    if (!Set(schema, QLatin1StringView(schema.PictureKey), value, until)) return false;
    if (*schema.DarkKey) Set(schema, QLatin1StringView(schema.DarkKey), value, until);
    for (const FitName& fit : FitNames) {
        if (fit.Value == picture.Fit) return Set(schema, OptionsKey, QLatin1StringView(fit.Name), until);
    }
    return false;
}

bool IsHere(const DesktopSession& session)
{
    return SchemaOf(session) != nullptr;
}

WallpaperAnswer Show(const DesktopSession& session, const DesktopPicture& picture, const QDeadlineTimer& until)
{
    const Schema& schema = *SchemaOf(session);
    const bool done = picture.Path == wallpaper::None ? Set(schema, OptionsKey, u"none"_s, until)
                                                      : SetPicture(schema, picture, until);
    return done ? WallpaperAnswer::Done : WallpaperAnswer::Failed;
}

std::optional<DesktopPicture> Present(const DesktopSession& session, const QDeadlineTimer& until)
{
    const Schema& schema = *SchemaOf(session);
    const auto options = Get(schema, OptionsKey, until);
    const auto value = options ? Get(schema, QLatin1StringView(schema.PictureKey), until) : std::nullopt;
    if (!value) return std::nullopt;
    if (*options == u"none" || value->isEmpty()) return DesktopPicture{wallpaper::None};
    for (const FitName& fit : FitNames) {
        if (*options == QLatin1StringView(fit.Name)) return DesktopPicture{WallpaperPath(*value), fit.Value};
    }
    return DesktopPicture{WallpaperPath(*value), Fit::Zoomed};
}
} // namespace

const WallpaperBackend GSettingsWallpaper = {IsHere, Show, Present};
