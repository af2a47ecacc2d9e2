// A picture as the ground of the X root window, in the way that programs which look through to it expect. It stays
// when the connection that made it is closed.
#pragma once

#include <QImage>

#include <xcb/xcb.h>

#include <memory>

class RootPixmap
{
public:
    RootPixmap(); // connects to the display of the environment
    bool IsConnected() const { return m_screen != nullptr; }
    QSize Size() const { return {m_screen->width_in_pixels, m_screen->height_in_pixels}; }

    bool IsCovered() const; // by a desktop's own window, so that nobody would see the root
    bool HasPicture() const;

    bool Show(const QImage& image); // of Size(); false if the server did not take it
    bool Clear();                   // black

private:
    struct Disconnect
    {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    xcb_atom_t Atom(const char* name) const;
    QList<quint32> Property(xcb_window_t window, const char* name) const;
    xcb_pixmap_t Pixmap(const char* property) const;
    bool IsPlain32Bit() const;
    bool Fill(xcb_pixmap_t pixmap, const QImage& image);
    bool Check(xcb_void_cookie_t cookie) const;
    bool Replace(quint32 mask, quint32 ground, xcb_pixmap_t pixmap);

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    const xcb_screen_t* m_screen = nullptr;
};
