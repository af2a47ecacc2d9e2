#include "wallpaper/calendarpicture.h"

#include "calendar/ccalendarview.h"
#include "hall/bottompanel.h"
#include "hall/cells.h"
#include "platform/desktop/windowplace.h"
#include "platform/runtime/durablefile.h"
#include "platform/runtime/runtimeerror.h"
#include "wallpaper/momentslook.h"

#include <QBuffer>
#include <QPainter>

#include <optional>

namespace {
// The client area as large as it is in a window that fills the work area, as long as this lives. The window itself
// stays where it is: it would flash, and a window manager may refuse or come too late.
class GrownClient
{
public:
    explicit GrownClient(QWidget& client) : m_client(client), m_before(client.geometry())
    {
        const QWidget& window = *client.window();
        const QSize around = window.frameGeometry().size() - client.size();
        m_client.resize(window.screen()->availableGeometry().size() - around);
    }
    ~GrownClient() { m_client.setGeometry(m_before); }
    Q_DISABLE_COPY_MOVE(GrownClient)

private:
    QWidget& m_client;
    const QRect m_before;
};

QSize ScaledBy(const QSize& logical, qreal ratio)
{
    return (QSizeF(logical) * ratio).toSize();
}

// The region drawn over an image of this many pixels. Letters are drawn in their new size, not stretched.
QImage DrawOver(QWidget& client, const QRect& region, const QSize& drawn, const QSize& pixels)
{
    const qreal ratio = client.devicePixelRatioF();
    QImage image(pixels, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(client.palette().color(QPalette::Window));
    QPainter painter(&image);
    painter.scale(drawn.width() / ratio / region.width(), drawn.height() / ratio / region.height());
    client.render(&painter, QPoint(), region);
    return image;
}
} // namespace

QRect CalendarPicture::Region() const
{
    Rectangle grid;
    m_calendar.GetRect(grid.left, grid.top, grid.right, grid.bottom);
    return {grid.left, grid.top, grid.right - grid.left, grid.bottom - grid.top + m_bottom.panelBottom->height()};
}

QImage CalendarPicture::Draw(int wallpaperSize) const
{
    QWidget& client = *m_cells.Client();
    std::optional<GrownClient> grown;
    if (wallpaperSize != calendarpicture::Normal && client.isVisible()) grown.emplace(client);
    const MomentsLook out(m_cells, m_calendar, m_lblDateDiff, *m_bottom.panelBottom);
    const QRect region = Region();
    const qreal ratio = client.devicePixelRatioF();
    if (wallpaperSize == calendarpicture::Stretched) {
        const QSize screen = NativeSize(*client.screen());
        return DrawOver(client, region, screen, screen);
    }
    const QSize drawn = ScaledBy(region.size(), ratio);
    // One line less than the region: the panel's lowest is that of the client area below.
    return DrawOver(client, region, drawn, ScaledBy(region.size() - QSize(0, 1), ratio));
}

void SaveBitmap(const QImage& image, const QString& path)
{
    QBuffer bitmap;
    QString reason;
    if (!image.save(&bitmap, "BMP") || !WriteDurably(path, bitmap.data(), &reason))
        throw RunTimeError{errors::PathFileAccess, u"Cannot write %1: %2"_s.arg(path, reason)};
}
