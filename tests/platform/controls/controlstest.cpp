// Control arrays, timers and the Visible property.
#include "errorof.h"
#include "platform/controls/controlarray.h"
#include "platform/controls/resources.h"
#include "platform/controls/timer.h"
#include "platform/controls/visible.h"
#include "testmain.h"

#include <QEventLoop>
#include <QIcon>
#include <QPushButton>
#include <QTest>
#include <QThread>

class ControlsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { InitResources(); }

    void elementsComeAndGo()
    {
        QWidget window;
        ControlArray<QPushButton> buttons(u"btnTunes"_s, [&](int) { return new QPushButton(&window); });
        QVERIFY(!buttons.Exists(7));
        QCOMPARE(ErrorOf([&] { buttons(7); }), errors::NoSuchElement);
        QCOMPARE(ErrorOf([&] { buttons.Unload(7); }), errors::NoSuchElement);
        QPushButton& made = buttons.Load(7);
        QCOMPARE(&buttons(7), &made);
        QCOMPARE(window.findChild<QPushButton*>(u"btnTunes(7)"_s), &made);
        QCOMPARE(ErrorOf([&] { buttons.Load(7); }), errors::AlreadyLoaded);
        QCOMPARE(window.findChildren<QPushButton*>().size(), 1);
        connect(&made, &QPushButton::clicked, this, [&] { buttons.Unload(7); });
        made.click(); // which ends behind it
        QVERIFY(!buttons.Exists(7));
        QVERIFY(!window.findChild<QPushButton*>(u"btnTunes(7)"_s));
        QTRY_VERIFY(window.findChildren<QPushButton*>().isEmpty());
        buttons.Load(7);
    }

    void elementsAreWiredByTheMaker()
    {
        QWidget window;
        QList<int> clicked;
        ControlArray<QPushButton> buttons(u"btn"_s, [&](int index) {
            auto* button = new QPushButton(&window);
            connect(button, &QPushButton::clicked, &window, [&clicked, index] { clicked << index; });
            return button;
        });
        buttons.Load(1);
        QTest::mouseClick(&buttons(1), Qt::LeftButton);
        buttons.Load(36);
        QTest::mouseClick(&buttons(36), Qt::LeftButton);
        QCOMPARE(clicked, QList<int>({1, 36}));
    }

    // As a message box does that an event opens: it waits for what only the next event brings.
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
        QCOMPARE(ticks, 0);
        // Both are due at once, and the second is served while the tick of the first still waits in the queue.
        QTimer other;
        connect(&other, &QTimer::timeout, this, [&] { timer.SetEnabled(false); });
        timer.SetEnabled(true);
        other.start(2);
        QThread::msleep(20);
        QTRY_VERIFY(!timer.Enabled());
        QTest::qWait(10);
        QCOMPARE(ticks, 0);
    }

    void visibleIsWhatWasSet()
    {
        QWidget window;
        QWidget sidebar(&window), button(&sidebar);
        window.show();
        SetVisible(button, true);
        SetVisible(sidebar, false);
        QVERIFY(Visible(button));
        QVERIFY(!Visible(sidebar));
        SetVisible(button, false);
        SetVisible(sidebar, true);
        QVERIFY(!Visible(button));
    }

    void picturesAreThere_data()
    {
        QTest::addColumn<QString>("name");
        for (const char* name : {"left", "right", "orrelin"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void picturesAreThere()
    {
        QFETCH(QString, name);
        const QIcon icon(u":/icons/%1.svg"_s.arg(name));
        for (int size : {16, 24, 48, 256}) {
            const QImage image = icon.pixmap(QSize(size, size), 1.0).toImage();
            QCOMPARE(image.size(), QSize(size, size));
            int painted = 0;
            for (int y = 0; y < size; ++y) {
                for (int x = 0; x < size; ++x)
                    painted += qAlpha(image.pixel(x, y)) > 128;
            }
            QVERIFY(painted > size && painted < size * size);
            QCOMPARE(qAlpha(image.pixel(0, 0)), 0);
        }
    }
};

ORRELIN_TEST(ControlsTest)
#include "controlstest.moc"
