// Control arrays, timers and the program's built-in pictures.
#include "errorof.h"
#include "platform/controls/controlarray.h"
#include "platform/controls/resources.h"
#include "platform/controls/timer.h"
#include "testmain.h"

#include <QDir>
#include <QEventLoop>
#include <QPushButton>
#include <QTemporaryDir>
#include <QThread>

class ControlsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void elementsComeAndGo()
    {
        QWidget window;
        QList<int> clicked;
        ControlArray<QPushButton> buttons(u"btnTunes"_s, [&](int index) {
            auto* button = new QPushButton(&window);
            connect(button, &QPushButton::clicked, &window, [&clicked, index] { clicked << index; });
            return button;
        });
        QCOMPARE(ErrorOf([&] { buttons(7); }), errors::NoSuchElement);
        QCOMPARE(ErrorOf([&] { buttons.Unload(7); }), errors::NoSuchElement);
        QPushButton& made = buttons.Load(7);
        QCOMPARE(&buttons(7), &made);
        QCOMPARE(window.findChild<QPushButton*>(u"btnTunes(7)"_s), &made);
        QCOMPARE(ErrorOf([&] { buttons.Load(7); }), errors::AlreadyLoaded);
        buttons.Load(36).click();
        connect(&made, &QPushButton::clicked, this, [&] { buttons.Unload(7); });
        made.click(); // unloaded only after its own event
        QCOMPARE(clicked, QList<int>({36, 7}));
        QVERIFY(!buttons.Exists(7) && !window.findChild<QPushButton*>(u"btnTunes(7)"_s));
        QTRY_COMPARE(window.findChildren<QPushButton*>().size(), 1);
        buttons.Load(7);
    }

    // As when the event opens a message box, which waits for the next event.
    void timerTicksInsideItsOwnEvent()
    {
        Timer timer(5);
        int ticks = 0;
        connect(&timer, &Timer::Tick, this, [&] {
            if (++ticks != 1) return;
            QEventLoop box;
            connect(&timer, &Timer::Tick, &box, &QEventLoop::quit);
            QTimer::singleShot(5000, &box, &QEventLoop::quit);
            box.exec();
            QVERIFY(ticks > 1);
            timer.SetEnabled(false);
        });
        timer.SetEnabled(true);
        QTRY_VERIFY(ticks > 1 && !timer.Enabled());
    }

    void disabledTimerIsSilent()
    {
        Timer timer(1);
        int ticks = 0;
        connect(&timer, &Timer::Tick, this, [&] { ++ticks; });
        QTest::qWait(10);
        // Both are due at once. The second runs while the tick of the first is still queued.
        QTimer other;
        connect(&other, &QTimer::timeout, this, [&] { timer.SetEnabled(false); });
        timer.SetEnabled(true);
        other.start(2);
        QThread::msleep(20);
        QTRY_VERIFY(!timer.Enabled());
        QTest::qWait(10);
        QCOMPARE(ticks, 0);
    }

    // A picture is read at its first paint: reading those of a whole window would slow the start.
    void picturesAreReadLate()
    {
        InitResources();
        const QTemporaryDir folder;
        const QString file = folder.filePath(u"late.svg"_s);
        const QIcon late = PictureIcon(file);
        QVERIFY(QFile::copy(u":/icons/left.svg"_s, file));
        QCOMPARE(late.pixmap(24).toImage(), QIcon(u":/icons/left.svg"_s).pixmap(24).toImage());
    }

    void everyPictureDraws()
    {
        InitResources();
        QList<QImage> drawn;
        for (const QString& file : QDir(u":/icons"_s).entryList()) {
            const QImage picture = PictureIcon(u":/icons/"_s + file).pixmap(QSize(24, 24), 2.0).toImage();
            int inked = 0;
            for (int y = 0; y < picture.height(); ++y) {
                for (int x = 0; x < picture.width(); ++x)
                    inked += qAlpha(picture.pixel(x, y)) > 128;
            }
            QVERIFY2(inked > 48 && inked < 48 * 48, qPrintable(file));
            QCOMPARE(qAlpha(picture.pixel(0, 0)), 0);
            QVERIFY2(!drawn.contains(picture), qPrintable(file));
            drawn += picture;
        }
        QVERIFY(drawn.size() > 20);
    }
};

ORRELIN_TEST(ControlsTest)
#include "controlstest.moc"
