// Paints the X root window under plain window managers, in the way that pseudo-transparent programs expect.
#include "platform/desktop/wallpaperbackend.h"
#include "platform/desktop/windowplace.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>

using wallpaper::Fit;

namespace {
// Both name the same pixmap if its maker left it for its successor to free.
constexpr const char* PictureProperty = "_XROOTPMAP_ID";
constexpr const char* LeftBehindProperty = "ESETROOT_PMAP_ID";
constexpr int LongestProperty = 1024; // 4-byte units
constexpr int RequestHead = 64;       // upper bound of a request's header, in bytes

template <typename Reply>
std::unique_ptr<Reply, decltype(&std::free)> Owned(Reply* reply)
{
    return {reply, &std::free};
}

// An own X connection, since the resources of a connection are retained only as a whole.
class Root
{
public:
    Root();
    ~Root() { xcb_disconnect(m_connection); }
    Q_DISABLE_COPY_MOVE(Root)

    bool IsConnected() const { return m_screen != nullptr; }
    QSize Size() const { return {m_screen->width_in_pixels, m_screen->height_in_pixels}; }
    bool IsCovered() const; // a desktop window hides the root
    bool HasPicture() const { return Pixmap(PictureProperty) != XCB_PIXMAP_NONE; }

    bool Show(const QImage& image); // image has Size(); false if the server refused it
    bool Clear() { return Replace(XCB_CW_BACK_PIXEL, m_screen->black_pixel, XCB_PIXMAP_NONE); }

private:
    xcb_atom_t Atom(const char* name) const;
    QList<quint32> Property(xcb_window_t window, const char* name) const;
    xcb_pixmap_t Pixmap(const char* property) const;
    bool Fill(xcb_pixmap_t pixmap, const QImage& image);
    bool Check(xcb_void_cookie_t cookie) const { return !Owned(xcb_request_check(m_connection, cookie)); }
    bool Replace(quint32 mask, quint32 ground, xcb_pixmap_t pixmap);

    int m_number = 0;
    xcb_connection_t* const m_connection = xcb_connect(nullptr, &m_number);
    const xcb_screen_t* m_screen = nullptr;
};

Root::Root()
{
    if (xcb_connection_has_error(m_connection)) return;
    auto screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection));
    for (; screen.rem > 0 && m_number > 0; --m_number)
        xcb_screen_next(&screen);
    if (screen.rem > 0) m_screen = screen.data;
}

xcb_atom_t Root::Atom(const char* name) const
{
    const auto cookie = xcb_intern_atom(m_connection, 0, std::uint16_t(std::strlen(name)), name);
    const auto reply = Owned(xcb_intern_atom_reply(m_connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

QList<quint32> Root::Property(xcb_window_t window, const char* name) const
{
    const auto cookie = xcb_get_property(m_connection, 0, window, Atom(name), XCB_ATOM_ANY, 0, LongestProperty);
    const auto reply = Owned(xcb_get_property_reply(m_connection, cookie, nullptr));
    if (!reply || reply->format != 32) return {};
    const auto* values = static_cast<const quint32*>(xcb_get_property_value(reply.get()));
    return {values, values + reply->value_len};
}

xcb_pixmap_t Root::Pixmap(const char* property) const
{
    return Property(m_screen->root, property).value(0, XCB_PIXMAP_NONE);
}

bool Root::IsCovered() const
{
    const xcb_atom_t desktop = Atom("_NET_WM_WINDOW_TYPE_DESKTOP");
    return std::ranges::any_of(Property(m_screen->root, "_NET_CLIENT_LIST"), [&](xcb_window_t window) {
        return Property(window, "_NET_WM_WINDOW_TYPE").contains(desktop);
    });
}

// Sent in strips, since the length of a request is limited.
bool Root::Fill(xcb_pixmap_t pixmap, const QImage& image)
{
    const xcb_gcontext_t context = xcb_generate_id(m_connection);
    xcb_create_gc(m_connection, context, pixmap, 0, nullptr);
    const qsizetype longest = qsizetype(xcb_get_maximum_request_length(m_connection)) * 4 - RequestHead;
    const int rows = std::max(1, int(longest / image.bytesPerLine()));
    for (int top = 0; top < image.height(); top += rows) {
        const int height = std::min(rows, image.height() - top);
        const auto put = xcb_put_image_checked(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context,
                                               std::uint16_t(image.width()), std::uint16_t(height), 0,
                                               std::int16_t(top), 0, m_screen->root_depth,
                                               std::uint32_t(image.bytesPerLine() * height), image.constScanLine(top));
        if (!Check(put)) return false; // for example if pixels have not 32 bits
    }
    xcb_free_gc(m_connection, context);
    return true;
}

bool Root::Show(const QImage& image)
{
    if (xcb_get_setup(m_connection)->image_byte_order != XCB_IMAGE_ORDER_LSB_FIRST) return false;
    const xcb_pixmap_t pixmap = xcb_generate_id(m_connection);
    const auto made = xcb_create_pixmap_checked(m_connection, m_screen->root_depth, pixmap, m_screen->root,
                                                m_screen->width_in_pixels, m_screen->height_in_pixels);
    if (!Check(made) || !Fill(pixmap, image)) return false;
    xcb_set_close_down_mode(m_connection, XCB_CLOSE_DOWN_RETAIN_PERMANENT);
    if (Replace(XCB_CW_BACK_PIXMAP, pixmap, pixmap)) return true;
    // Nobody could free a pixmap without name.
    xcb_set_close_down_mode(m_connection, XCB_CLOSE_DOWN_DESTROY_ALL);
    xcb_flush(m_connection);
    return false;
}

// The previous picture is freed last, so that the root always has one.
bool Root::Replace(quint32 mask, quint32 ground, xcb_pixmap_t pixmap)
{
    const xcb_pixmap_t before = Pixmap(PictureProperty);
    const bool isLeftBehind = before != XCB_PIXMAP_NONE && before == Pixmap(LeftBehindProperty);
    if (!Check(xcb_change_window_attributes_checked(m_connection, m_screen->root, mask, &ground))) return false;
    xcb_clear_area(m_connection, 0, m_screen->root, 0, 0, 0, 0);
    for (const char* property : {PictureProperty, LeftBehindProperty}) {
        if (pixmap == XCB_PIXMAP_NONE)
            xcb_delete_property(m_connection, m_screen->root, Atom(property));
        else
            xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_screen->root, Atom(property), XCB_ATOM_PIXMAP,
                                32, 1, &pixmap);
    }
    if (isLeftBehind) xcb_kill_client(m_connection, before);
    return Owned(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr)) != nullptr;
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
        // In server pixels; screens keep their position.
        for (const QScreen* screen : QGuiApplication::screens())
            Draw(painter, image, {screen->geometry().topLeft(), NativeSize(*screen)}, fit);
    }
    return ground;
}

// Under Wayland the root exists for old programs but is not visible.
bool IsHere(const DesktopSession&)
{
    return QGuiApplication::platformName() == "xcb"_L1 && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY") &&
           Root().IsConnected();
}

bool Show(const DesktopSession&, const DesktopPicture& picture, const QDeadlineTimer&)
{
    Root root;
    if (!root.IsConnected() || root.IsCovered()) return false;
    if (picture.Path == wallpaper::None) return root.Clear();
    const QImage image(picture.Path);
    return !image.isNull() && root.Show(Compose(image, root.Size(), picture.Fit));
}

// The root does not tell which file it shows.
std::optional<DesktopPicture> Present(const DesktopSession&, const QDeadlineTimer&)
{
    const Root root;
    if (root.IsConnected() && !root.HasPicture()) return DesktopPicture{wallpaper::None};
    return std::nullopt;
}
} // namespace

const WallpaperBackend RootWallpaper = {.IsHere = IsHere, .Show = Show, .Present = Present, .IsKept = false};
