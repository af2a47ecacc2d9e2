// Plasma: its shell runs a script over all desktops.
#include "platform/desktop/wallpaperbackend.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QJsonArray>
#include <QJsonDocument>

namespace {
// Plasma cannot span, so it fills the screen instead.
constexpr FitNames FillModes{{"6", "3", "0", "1", "2", "2"}};

const QString SetScript =
    u"var all = desktops(); for (var i = 0; i < all.length; ++i) { all[i].wallpaperPlugin = 'org.kde.image';"
    "all[i].currentConfigGroup = ['Wallpaper', 'org.kde.image', 'General']; all[i].writeConfig('FillMode', %2);"
    "all[i].writeConfig('Image', %1[0]); } print(all.length);"_s;
const QString ClearScript = u"var all = desktops(); for (var i = 0; i < all.length; ++i)"
                            "{ all[i].wallpaperPlugin = 'org.kde.color'; } print(all.length);"_s;
const QString ReadScript =
    u"var one = desktops()[0]; one.currentConfigGroup = ['Wallpaper', 'org.kde.image', 'General'];"
    "print(JSON.stringify([one.wallpaperPlugin, '' + one.readConfig('Image'), '' + "
    "one.readConfig('FillMode')]));"_s;

// The script's output. Empty if there is no shell, it does not answer in time, or it refuses.
std::optional<QString> Run(const QString& script, const QDeadlineTimer& until)
{
    QDBusMessage call = QDBusMessage::createMethodCall(u"org.kde.plasmashell"_s, u"/PlasmaShell"_s,
                                                       u"org.kde.PlasmaShell"_s, u"evaluateScript"_s);
    call.setArguments({script});
    const QDBusMessage reply =
        QDBusConnection::sessionBus().call(call, QDBus::Block, std::max(1, int(until.remainingTime())));
    if (reply.type() != QDBusMessage::ReplyMessage) return std::nullopt;
    return reply.arguments().value(0).toString().trimmed();
}

bool IsHere(const DesktopSession& session)
{
    return session.Is("KDE");
}

bool Show(const DesktopSession&, const DesktopPicture& picture, const QDeadlineTimer& until)
{
    // A JSON array is also a valid script expression, whatever the path contains.
    const QByteArray address = QJsonDocument(QJsonArray{WallpaperAddress(picture.Path)}).toJson(QJsonDocument::Compact);
    const QString script = picture.Path == wallpaper::None
                               ? ClearScript
                               : SetScript.arg(QString::fromUtf8(address), FillModes.Of(picture.Fit));
    return Run(script, until).value_or(QString()).toInt() > 0; // number of desktops
}

std::optional<DesktopPicture> Present(const DesktopSession&, const QDeadlineTimer& until)
{
    const QJsonArray read = QJsonDocument::fromJson(Run(ReadScript, until).value_or(QString()).toUtf8()).array();
    const QString plugin = read.at(0).toString(), image = read.at(1).toString();
    if (plugin == "org.kde.color"_L1) return DesktopPicture{wallpaper::None};
    // For example, a slide show could not be restored.
    if (plugin != "org.kde.image"_L1 || image.isEmpty()) return std::nullopt;
    return DesktopPicture{WallpaperPath(image), FillModes.Named(read.at(2).toString())};
}
} // namespace

const WallpaperBackend PlasmaWallpaper = {IsHere, Show, Present};
