#include "fakedesktop.h"
#include "platform/desktop/folders.h"
#include "platform/desktop/wallpaper.h"
#include "privatebus.h"
#include "support.h"
#include "testmain.h"
#include "virtualscreen.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QThread>

// The behaviour of the two services on the bus, and the requests that they got.
struct Played
{
    enum Manner
    {
        Answers,
        AnswersLate,
        Hangs,  // accepts the call and never replies
        Forgets // replies and never sends the result
    };
    static inline Manner manner = Answers;
    static inline uint code = 0;
    static inline QByteArray taken; // the bytes of the picture
    static inline QStringList scripts;
    static inline QString printed;
};

class PlayedPortal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Wallpaper")

public:
    explicit PlayedPortal(const QDBusConnection& bus) : m_bus(bus) {}

public Q_SLOTS:
    QDBusObjectPath SetWallpaperFile(const QString&, const QDBusUnixFileDescriptor& picture, const QVariantMap& options,
                                     const QDBusMessage& call)
    {
        if (Played::manner == Played::Hangs) return call.setDelayedReply(true), QDBusObjectPath();
        QFile file;
        if (file.open(picture.fileDescriptor(), QIODevice::ReadOnly)) Played::taken = file.readAll();
        const QString path = u"/org/freedesktop/portal/desktop/request/%1/%2"_s.arg(
            call.service().mid(1).replace(u'.', u'_'), options.value(u"handle_token"_s).toString());
        QDBusMessage response = QDBusMessage::createSignal(path, u"org.freedesktop.portal.Request"_s, u"Response"_s);
        response << Played::code << QVariantMap();
        const int delay = Played::manner == Played::AnswersLate ? 200 : 0;
        // A real service sends the result before the reply or long after it.
        if (Played::manner == Played::Answers) m_bus.send(response);
        if (delay) QTimer::singleShot(delay, this, [this, response] { m_bus.send(response); });
        return QDBusObjectPath(path);
    }

private:
    QDBusConnection m_bus;
};

class PlayedPlasma : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.PlasmaShell")

public Q_SLOTS:
    QString evaluateScript(const QString& script, const QDBusMessage& call)
    {
        Played::scripts += script;
        if (Played::manner == Played::Hangs) call.setDelayedReply(true);
        return Played::printed;
    }
};

// The test's own session bus, with both services in their own thread.
class PlayedBus
{
public:
    void Serve()
    {
        QDBusConnection bus = QDBusConnection::connectToBus(m_bus.Address(), u"played"_s);
        auto* portal = new PlayedPortal(bus);
        auto* plasma = new PlayedPlasma;
        for (QObject* service : std::initializer_list<QObject*>{portal, plasma}) {
            service->moveToThread(&m_thread);
            QObject::connect(&m_thread, &QThread::finished, service, &QObject::deleteLater);
        }
        bus.registerObject(u"/org/freedesktop/portal/desktop"_s, portal, QDBusConnection::ExportAllSlots);
        bus.registerObject(u"/PlasmaShell"_s, plasma, QDBusConnection::ExportAllSlots);
        bus.registerService(u"org.freedesktop.portal.Desktop"_s);
        bus.registerService(u"org.kde.plasmashell"_s);
        m_thread.start();
    }

    ~PlayedBus()
    {
        m_thread.quit();
        m_thread.wait();
        QDBusConnection::disconnectFromBus(u"played"_s);
    }

private:
    PrivateBus m_bus;
    QThread m_thread;
};

// The desktops that can set a picture, each one faked.
class DesktopWallpaperTest : public QObject
{
    Q_OBJECT

    PlayedBus& m_bus;
    TemporaryFolders m_folders;
    QString m_picture;

    static bool Show(const QString& picture, int patience = 20000, wallpaper::Fit fit = wallpaper::Fit::Centered)
    {
        return SystemParametersInfoA(20, 0, {picture, fit}, 3, QDeadlineTimer(patience));
    }
    static bool ShowLaidOut(const QString& picture, wallpaper::Fit fit) { return Show(picture, 20000, fit); }
    static std::optional<DesktopPicture> Present() { return PresentWallpaper(QDeadlineTimer(20000)); }

public:
    explicit DesktopWallpaperTest(PlayedBus& bus) : m_bus(bus) {}

private Q_SLOTS:
    void initTestCase()
    {
        m_bus.Serve();
        // Characters that URIs, scripts and quoted texts escape in different ways.
        m_picture = m_folders.Path(u"It's \"my\" p\u00e4per \\1.bmp"_s);
        QImage image(20, 10, QImage::Format_RGB32);
        image.fill(Qt::red);
        QVERIFY(image.save(m_picture, "BMP"));
    }

    void init()
    {
        Played::manner = Played::Answers;
        Played::code = 0;
        Played::scripts.clear();
        Played::taken.clear();
    }
    void cleanup() { qunsetenv("FLATPAK_ID"); }

    void ADesktopsOwnSettingsTakeThePicture()
    {
        const QByteArrayList names{"'zoom'", "'centered'", "'none'"};
        // fits: zoomed, centred, and the value that a call sets first
        const std::tuple<const char*, QByteArray, QString, QByteArray, QString, QByteArrayList> rows[] = {
            {"GNOME", "ubuntu:GNOME", u"org.gnome.desktop.background picture-uri"_s, "'file:///usr/my%20photo.jpg'",
             u"org.gnome.desktop.background picture-options"_s, names},
            {"Cinnamon", "X-Cinnamon", u"org.cinnamon.desktop.background picture-uri"_s, "'file:///usr/my%20photo.jpg'",
             u"org.cinnamon.desktop.background picture-options"_s, names},
            {"MATE", "MATE", u"org.mate.background picture-filename"_s, "'/usr/my photo.jpg'",
             u"org.mate.background picture-options"_s, names},
            {"Xfce", "XFCE", u"xfce/backdrop/screen0/monitorDP-1/workspace0/last-image"_s, "/usr/my photo.jpg",
             u"xfce/backdrop/screen0/monitorDP-1/workspace0/image-style"_s, QByteArrayList{"5", "1", "-s 0"}},
        };
        for (const auto& [name, desktop, pictureKey, before, fitKey, fits] : rows) {
            const InRow inRow(this, name);
            const FakeDesktop fake(desktop.constData());
            fake.Keep(pictureKey, before);
            fake.Keep(fitKey, fits[0]);
            QCOMPARE(Present()->Path, u"/usr/my photo.jpg"_s);
            QCOMPARE(Present()->Fit, wallpaper::Fit::Zoomed);

            QVERIFY(Show(m_picture));
            QCOMPARE(fake.Kept(fitKey), fits[1]);
            QCOMPARE(*Present(), DesktopPicture{m_picture});
            QVERIFY(!fake.Calls().contains(fits[2])); // no reload is needed
            QVERIFY(Show(m_picture));
            QVERIFY(fake.Calls().contains(fits[2])); // otherwise the desktop would keep its cached picture
            QCOMPARE(*Present(), DesktopPicture{m_picture});
            QVERIFY(ShowLaidOut(m_picture, wallpaper::Fit::Zoomed));
            QCOMPARE(fake.Kept(fitKey), fits[0]);

            QVERIFY(Show(wallpaper::None));
            QCOMPARE(*Present(), DesktopPicture{wallpaper::None});
            fake.Become("refuses");
            Played::code = 2; // the portal refuses too
            QVERIFY(!Show(m_picture));
            QVERIFY(!Present());
        }
    }

    void EveryMonitorAndWorkspaceOfXfceIsPainted()
    {
        const FakeDesktop fake("XFCE");
        const QString first = u"xfce/backdrop/screen0/monitorDP-1/workspace0/last-image"_s;
        const QString second = u"xfce/backdrop/screen0/monitorHDMI-2/workspace3/last-image"_s;
        for (const QString& key : {first, second})
            fake.Keep(key, "/before.jpg");
        QVERIFY(Show(m_picture));
        QCOMPARE(fake.Kept(first), m_picture.toUtf8());
        QCOMPARE(fake.Kept(second), m_picture.toUtf8());
    }

    void TheFileManagerOfLxqtIsTold()
    {
        const FakeDesktop fake("LXQt");
        QVERIFY(Show(m_picture));
        QVERIFY(fake.Calls().contains("pcmanfm-qt --set-wallpaper=" + m_picture.toUtf8() + " --wallpaper-mode=center"));
    }

    void ADesktopThatForgetsOrHangsIsNotBelieved()
    {
        for (const char* manner : {"forgets", "hangs"}) {
            const FakeDesktop fake("GNOME");
            fake.Become(manner);
            Played::code = 2;
            QVERIFY2(!Show(m_picture), manner);
            Played::code = 0;
            Played::taken.clear();
            QVERIFY2(Show(m_picture) && !Played::taken.isEmpty(), manner);
        }
    }

    void PlasmaRunsAScriptOverItsDesktops()
    {
        const FakeDesktop fake("KDE");
        Played::printed = u"[\"org.kde.image\",\"file:///usr/my%20photo.jpg\",\"2\"]"_s;
        QCOMPARE(*Present(), (DesktopPicture{u"/usr/my photo.jpg"_s, wallpaper::Fit::Zoomed}));
        Played::printed = u"[\"org.kde.slideshow\",\"\",\"\"]"_s;
        QVERIFY(!Present());
        Played::printed = u"2\n"_s;
        QVERIFY(Show(m_picture));
        QVERIFY(Played::scripts.last().contains(
            u"['Wallpaper', 'org.kde.image', 'General']; all[i].writeConfig('FillMode', 6)"_s));
        QVERIFY(Played::scripts.last().contains(u"writeConfig('Image', [\"file:///"_s));
        QVERIFY(Show(wallpaper::None));
        QVERIFY(Played::scripts.last().contains(u"org.kde.color"));
        Played::code = 2;
        Played::printed = u"0"_s;
        QVERIFY(!Show(m_picture));
        Played::manner = Played::Hangs;
        QVERIFY(!Show(m_picture, 300));
    }

    void ThePortalSaysWhatCameOfIt()
    {
        const std::tuple<const char*, int, uint, bool> rows[] = {
            {"granted", Played::Answers, 0U, true},
            {"granted after a while", Played::AnswersLate, 0U, true},
            {"refused by the person", Played::Answers, 1U, false},
            {"ended otherwise", Played::AnswersLate, 2U, false},
            {"never says", Played::Forgets, 0U, false},
            {"never replies", Played::Hangs, 0U, false},
        };
        for (const auto& [name, manner, code, isShown] : rows) {
            const InRow inRow(this, name);
            qputenv("FLATPAK_ID", "org.example");
            const FakeDesktop fake("GNOME"); // it has only the sandbox's settings
            Played::manner = Played::Manner(manner);
            Played::code = code;
            QCOMPARE(Show(m_picture, isShown ? 20000 : 600), isShown);
            if (isShown) QCOMPARE(Played::taken, Content(m_picture));
            QVERIFY(!Show(wallpaper::None)); // no portal can remove a picture
            QCOMPARE(fake.Calls(), QByteArray());
        }
    }

    void TheRootKeepsThePictureAndFreesTheOneBefore()
    {
        const SeenRoot root;
        QCOMPARE(*Present(), DesktopPicture{wallpaper::None});
        QVERIFY(Show(m_picture));
        const xcb_pixmap_t first = root.Pixmap();
        QCOMPARE(root.Pixmap("ESETROOT_PMAP_ID"), first);
        const QImage seen = root.Picture(first);
        QCOMPARE(seen.size(), root.SizeOf(root.Window()));
        QCOMPARE(seen.pixelColor(seen.rect().center()), QColor(Qt::red));
        QCOMPARE(seen.pixelColor(seen.rect().center() + QPoint(12, 0)),
                 QColor(Qt::black)); // neither stretched nor tiled
        QVERIFY(!Present());         // the owner of the picture is unknown
        QVERIFY(ShowLaidOut(m_picture, wallpaper::Fit::Stretched));
        QVERIFY(root.Pixmap() != first);
        QCOMPARE(root.SizeOf(first), QSize());
        QCOMPARE(root.Picture(root.Pixmap()).pixelColor(1, 1), QColor(Qt::red));
        QCOMPARE(root.Picture(root.Window()).pixelColor(1, 1), QColor(Qt::red)); // also on the screen
        QVERIFY(Show(wallpaper::None));
        QCOMPARE(root.Pixmap(), xcb_pixmap_t(XCB_PIXMAP_NONE));
        QCOMPARE(root.Picture(root.Window()).pixelColor(1, 1), QColor(Qt::black));
        QVERIFY(Played::taken.isEmpty()); // a portal knows only settings that nobody reads here
    }

    void ARootThatNobodySeesIsNotPainted()
    {
        const SeenRoot root;
        const xcb_window_t window = root.Window(); // plays a desktop's own window
        const xcb_atom_t desktop = root.Atom("_NET_WM_WINDOW_TYPE_DESKTOP");
        const auto set = [&](const char* property, xcb_atom_t type, quint32 value) {
            xcb_change_property(root.Connection(), XCB_PROP_MODE_REPLACE, window, root.Atom(property), type, 32, 1,
                                &value);
            xcb_flush(root.Connection());
        };
        set("_NET_CLIENT_LIST", XCB_ATOM_WINDOW, window);
        set("_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, desktop);
        Played::code = 2;
        const bool isShown = Show(m_picture);
        set("_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, XCB_ATOM_NONE);
        QVERIFY(!isShown);
        QVERIFY(!Played::taken.isEmpty()); // the portal was asked instead
    }

    void WhatIsNoPictureIsRefused()
    {
        QVERIFY(!Show(m_folders.Path(u"missing.bmp"_s)));
        const QString text = m_folders.Path(u"text.bmp"_s);
        SetContent(text, "no picture");
        Played::code = 2;
        QVERIFY(!Show(text));
    }
};

static const Runnable runDesktopWallpaperTest("DesktopWallpaperTest", [](int argc, char** argv) {
    const VirtualScreen screen(QSize(800, 600));
    PlayedBus bus;
    QApplication application(argc, argv);
    DesktopWallpaperTest test(bus);
    return QTest::qExec(&test, argc, argv);
});

#include "desktopwallpapertest.moc"
