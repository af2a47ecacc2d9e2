#include "platform/desktop/rootpixmap.h"

#include <QList>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {
// Both name the same pixmap if its maker has left it behind for the next one to free.
constexpr const char* PictureProperty = "_XROOTPMAP_ID";
constexpr const char* LeftBehindProperty = "ESETROOT_PMAP_ID";
constexpr int LongestProperty = 1024; // of 4 bytes each
constexpr int RequestHead = 64;       // more bytes than a request has before its data

template <typename Reply>
std::unique_ptr<Reply, decltype(&std::free)> Owned(Reply* reply)
{
    return {reply, &std::free};
}
} // namespace

RootPixmap::RootPixmap()
{
    int number = 0;
    m_connection.reset(xcb_connect(nullptr, &number));
    if (xcb_connection_has_error(m_connection.get())) return;
    auto screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get()));
    for (; screen.rem > 0 && number > 0; --number)
        xcb_screen_next(&screen);
    m_screen = screen.rem > 0 ? screen.data : nullptr;
}

xcb_atom_t RootPixmap::Atom(const char* name) const
{
    const auto cookie = xcb_intern_atom(m_connection.get(), 0, std::uint16_t(std::strlen(name)), name);
    const auto reply = Owned(xcb_intern_atom_reply(m_connection.get(), cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

QList<quint32> RootPixmap::Property(xcb_window_t window, const char* name) const
{
    const auto cookie = xcb_get_property(m_connection.get(), 0, window, Atom(name), XCB_ATOM_ANY, 0, LongestProperty);
    const auto reply = Owned(xcb_get_property_reply(m_connection.get(), cookie, nullptr));
    if (!reply || reply->format != 32) return {};
    const auto* values = static_cast<const quint32*>(xcb_get_property_value(reply.get()));
    return {values, values + reply->value_len};
}

xcb_pixmap_t RootPixmap::Pixmap(const char* property) const
{
    return Property(m_screen->root, property).value(0, XCB_PIXMAP_NONE);
}

bool RootPixmap::IsCovered() const
{
    const xcb_atom_t desktop = Atom("_NET_WM_WINDOW_TYPE_DESKTOP");
    const QList<quint32> windows = Property(m_screen->root, "_NET_CLIENT_LIST");
    return std::any_of(windows.begin(), windows.end(),
                       [&](xcb_window_t window) { return Property(window, "_NET_WM_WINDOW_TYPE").contains(desktop); });
}

bool RootPixmap::HasPicture() const
{
    return Pixmap(PictureProperty) != XCB_PIXMAP_NONE;
}

bool RootPixmap::Check(xcb_void_cookie_t cookie) const
{
    return !Owned(xcb_request_check(m_connection.get(), cookie));
}

// The layout of QImage's 32-bit pixels. All screens of today have it.
bool RootPixmap::IsPlain32Bit() const
{
    const xcb_setup_t* setup = xcb_get_setup(m_connection.get());
    if (setup->image_byte_order != XCB_IMAGE_ORDER_LSB_FIRST || Q_BYTE_ORDER != Q_LITTLE_ENDIAN) return false;
    for (auto format = xcb_setup_pixmap_formats_iterator(setup); format.rem > 0; xcb_format_next(&format)) {
        if (format.data->depth == m_screen->root_depth) return format.data->bits_per_pixel == 32;
    }
    return false;
}

// In strips, since a request has a largest length.
bool RootPixmap::Fill(xcb_pixmap_t pixmap, const QImage& image)
{
    const xcb_gcontext_t context = xcb_generate_id(m_connection.get());
    xcb_create_gc(m_connection.get(), context, pixmap, 0, nullptr);
    const qsizetype longest = qsizetype(xcb_get_maximum_request_length(m_connection.get())) * 4 - RequestHead;
    const int rows = std::max(1, int(longest / image.bytesPerLine()));
    for (int top = 0; top < image.height(); top += rows) {
        const int height = std::min(rows, image.height() - top);
        const auto put = xcb_put_image_checked(m_connection.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context,
                                               std::uint16_t(image.width()), std::uint16_t(height), 0,
                                               std::int16_t(top), 0, m_screen->root_depth,
                                               std::uint32_t(image.bytesPerLine() * height), image.constScanLine(top));
        if (!Check(put)) return false;
    }
    xcb_free_gc(m_connection.get(), context);
    return true;
}

bool RootPixmap::Show(const QImage& image)
{
    if (image.size() != Size() || !IsPlain32Bit()) return false;
    const QImage pixels = image.convertToFormat(QImage::Format_RGB32);
    const xcb_pixmap_t pixmap = xcb_generate_id(m_connection.get());
    const auto made = xcb_create_pixmap_checked(m_connection.get(), m_screen->root_depth, pixmap, m_screen->root,
                                                m_screen->width_in_pixels, m_screen->height_in_pixels);
    if (!Check(made) || !Fill(pixmap, pixels)) return false;
    xcb_set_close_down_mode(m_connection.get(), XCB_CLOSE_DOWN_RETAIN_PERMANENT);
    if (Replace(XCB_CW_BACK_PIXMAP, pixmap, pixmap)) return true;
    // Nobody would ever free a pixmap that nothing names.
    xcb_set_close_down_mode(m_connection.get(), XCB_CLOSE_DOWN_DESTROY_ALL);
    xcb_flush(m_connection.get());
    return false;
}

bool RootPixmap::Clear()
{
    return Replace(XCB_CW_BACK_PIXEL, m_screen->black_pixel, XCB_PIXMAP_NONE);
}

// The picture before is freed last, so that the root is never without one.
bool RootPixmap::Replace(quint32 mask, quint32 ground, xcb_pixmap_t pixmap)
{
    xcb_connection_t* connection = m_connection.get();
    const xcb_pixmap_t before = Pixmap(PictureProperty);
    const bool isLeftBehind = before != XCB_PIXMAP_NONE && before == Pixmap(LeftBehindProperty);
    const auto set = xcb_change_window_attributes_checked(connection, m_screen->root, mask, &ground);
    if (!Check(set)) return false;
    xcb_clear_area(connection, 0, m_screen->root, 0, 0, 0, 0);
    for (const char* property : {PictureProperty, LeftBehindProperty}) {
        if (pixmap == XCB_PIXMAP_NONE) {
            xcb_delete_property(connection, m_screen->root, Atom(property));
        } else {
            xcb_change_property(connection, XCB_PROP_MODE_REPLACE, m_screen->root, Atom(property), XCB_ATOM_PIXMAP, 32,
                                1, &pixmap);
        }
    }
    if (isLeftBehind) xcb_kill_client(connection, before);
    return Owned(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr)) != nullptr;
}
