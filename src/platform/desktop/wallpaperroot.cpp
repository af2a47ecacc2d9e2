// A plain window manager, which leaves the ground to whoever paints the X root window.
#include "platform/desktop/nativesize.h"
#include "platform/desktop/rootpixmap.h"
#include "platform/desktop/wallpaperbackend.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

using wallpaper::Fit;

namespace {
// In the server's pixels, in which a screen keeps its place.
QRect NativeRect(const QScreen& screen)
{
    return {screen.geometry().topLeft(), NativeSize(screen)};
}

void Draw(QPainter& painter, const QImage& image, const QRect& area, Fit fit)
{
    QSize size = image.size();
    if (fit == Fit::Stretched) size = area.size();
    if (fit == Fit::Scaled) size.scale(area.size(), Qt::KeepAspectRatio);
    if (fit == Fit::Zoomed || fit == Fit::Spanned) size.scale(area.size(), Qt::KeepAspectRatioByExpanding);
    QRect place(QPoint(), size);
    place.moveCenter(area.center());
    painter.setClipRect(area);
    painter.drawImage(place, image);
}

QImage Compose(const QImage& image, const QSize& root, Fit fit)
{
    QImage ground(root, QImage::Format_RGB32);
    ground.fill(Qt::black);
    QPainter painter(&ground);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (fit == Fit::Tiled) {
        painter.fillRect(ground.rect(), QBrush(image));
    } else if (fit == Fit::Spanned) {
        Draw(painter, image, ground.rect(), fit);
    } else {
        for (const QScreen* screen : QGuiApplication::screens())
            Draw(painter, image, NativeRect(*screen), fit);
    }
    return ground;
}

// Under Wayland the root is there for old programs, but nobody sees it.
bool IsHere(const DesktopSession& session)
{
    return !session.IsSandboxed && QGuiApplication::platformName() == u"xcb" &&
           !qEnvironmentVariableIsSet("WAYLAND_DISPLAY") && RootPixmap().IsConnected();
}

WallpaperAnswer Show(const DesktopSession&, const DesktopPicture& picture, const QDeadlineTimer&)
{
    RootPixmap root;
    if (!root.IsConnected() || root.IsCovered()) return WallpaperAnswer::Failed;
    const bool clears = picture.Path == wallpaper::None;
    const QImage image = clears ? QImage() : QImage(picture.Path);
    if (!clears && image.isNull()) return WallpaperAnswer::Failed;
    const bool done = clears ? root.Clear() : root.Show(Compose(image, root.Size(), picture.Fit));
    return done ? WallpaperAnswer::Done : WallpaperAnswer::Failed;
}

// Whose picture it is does not stand on the root.
std::optional<DesktopPicture> Present(const DesktopSession&, const QDeadlineTimer&)
{
    const RootPixmap root;
    if (root.IsConnected() && !root.HasPicture()) return DesktopPicture{wallpaper::None};
    return std::nullopt;
}
} // namespace

const WallpaperBackend RootWallpaper = {.IsHere = IsHere, .Show = Show, .Present = Present, .IsKept = false};
