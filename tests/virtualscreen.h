// An X server of the test's own, and its root window. Construct it before the application object.
#pragma once

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

class VirtualScreen
{
public:
    explicit VirtualScreen(const QSize& size)
    {
        const QString screen = u"%1x%2x24"_s.arg(size.width()).arg(size.height());
        m_server.setStandardErrorFile(QProcess::nullDevice());
        m_server.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, screen, u"-nolisten"_s, u"tcp"_s});
        if (!m_server.waitForReadyRead()) qFatal("Xvfb did not start");
        qputenv("DISPLAY", ':' + m_server.readAllStandardOutput().trimmed());
        qputenv("QT_QPA_PLATFORM", "xcb");
        qputenv("XDG_RUNTIME_DIR", m_runtime.path().toUtf8());
        for (const char* name : {"WAYLAND_DISPLAY", "XDG_CURRENT_DESKTOP", "FLATPAK_ID", "SNAP_NAME"})
            qunsetenv(name);
    }

    ~VirtualScreen()
    {
        m_server.kill();
        m_server.waitForFinished();
    }

private:
    QTemporaryDir m_runtime;
    QProcess m_server;
};

// An answer of the X server; null after an error.
template <typename Reply>
std::unique_ptr<Reply, decltype(&std::free)> Owned(Reply* reply)
{
    return {reply, &std::free};
}

// The root window as another program sees it.
class SeenRoot
{
public:
    SeenRoot() : m_connection(xcb_connect(nullptr, nullptr)) {}
    ~SeenRoot() { xcb_disconnect(m_connection); }
    Q_DISABLE_COPY_MOVE(SeenRoot)

    xcb_window_t Window() const { return xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root; }
    xcb_connection_t* Connection() const { return m_connection; }

    xcb_atom_t Atom(const QByteArray& name) const
    {
        const auto cookie = xcb_intern_atom(m_connection, 0, quint16(name.size()), name.constData());
        return Owned(xcb_intern_atom_reply(m_connection, cookie, nullptr))->atom;
    }

    xcb_pixmap_t Pixmap(const QByteArray& property = "_XROOTPMAP_ID") const
    {
        const auto cookie = xcb_get_property(m_connection, 0, Window(), Atom(property), XCB_ATOM_PIXMAP, 0, 1);
        const auto reply = Owned(xcb_get_property_reply(m_connection, cookie, nullptr));
        return reply->value_len ? *static_cast<quint32*>(xcb_get_property_value(reply.get())) : 0;
    }

    QSize SizeOf(xcb_drawable_t drawable) const // empty if it no longer exists
    {
        const auto cookie = xcb_get_geometry(m_connection, drawable);
        const auto reply = Owned(xcb_get_geometry_reply(m_connection, cookie, nullptr));
        return reply ? QSize(reply->width, reply->height) : QSize();
    }

    QImage Picture(xcb_drawable_t drawable) const
    {
        const QSize size = SizeOf(drawable);
        const auto cookie = xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, drawable, 0, 0,
                                          quint16(size.width()), quint16(size.height()), ~0U);
        const auto reply = Owned(xcb_get_image_reply(m_connection, cookie, nullptr));
        if (!reply) return {};
        return QImage(xcb_get_image_data(reply.get()), size.width(), size.height(), QImage::Format_RGB32).copy();
    }

private:
    xcb_connection_t* m_connection;
};
