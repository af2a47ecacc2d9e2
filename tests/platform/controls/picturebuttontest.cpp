// Picture buttons under mouse and keyboard.
#include "platform/controls/picturebutton.h"

#include "platform/controls/resources.h"
#include "testmain.h"

#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTest>

namespace {
const QString g_left = u":/icons/left.svg"_s;
const QString g_right = u":/icons/right.svg"_s;

// A button as the sidebar uses it: the press shows the pressed picture, the release the raised one.
struct Sidebar
{
    Sidebar()
    {
        button.SetToolTip(0, u"Next month"_s);
        button.SetToolTip(1, u"Pressed"_s);
        button.setGeometry(10, 10, 60, 60);
        const auto record = [this](const QString& what) {
            return [this, what](int element) { log << what + QString::number(element); };
        };
        QObject::connect(&button, &PictureButton::MouseDown, &window, record(u"down"_s));
        QObject::connect(&button, &PictureButton::MouseUp, &window, record(u"up"_s));
        QObject::connect(&button, &PictureButton::Click, &window, record(u"click"_s));
        cell.setGeometry(0, 80, 90, 20);
        cell.setFocus();
        window.resize(100, 100);
        window.show();
        window.activateWindow();
        (void)QTest::qWaitForWindowActive(&window);
    }

    void Show(int element)
    {
        button.SetVisible(0, false);
        button.SetVisible(1, false);
        button.SetVisible(element, true);
    }

    QString Log() const { return log.join(u' '); }

    QWidget window;
    QLineEdit cell{&window};
    PictureButton button{g_left, g_right, &window};
    QStringList log;
};
} // namespace

class PictureButtonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { InitResources(); }

    void mouse()
    {
        Sidebar bar;
        QTest::mouseClick(&bar.button, Qt::LeftButton);
        QCOMPARE(bar.Log(), u"down0 up0 click0"_s);
        bar.log.clear();
        QTest::mousePress(&bar.button, Qt::LeftButton);
        QTest::mouseRelease(&bar.button, Qt::LeftButton, {}, {-5, 5});
        QTest::mouseClick(&bar.button, Qt::RightButton);
        QCOMPARE(bar.Log(), u"down0 up0"_s);
        bar.log.clear();
        QTest::mouseDClick(&bar.button, Qt::LeftButton); // the second of two quick presses
        QTest::mouseRelease(&bar.button, Qt::LeftButton);
        QCOMPARE(bar.Log(), u"down0 up0 click0"_s);
        QVERIFY(bar.cell.hasFocus()); // the caret stays in its cell
    }

    void swapUnderTheMouse()
    {
        Sidebar bar;
        connect(&bar.button, &PictureButton::MouseDown, this, [&] { bar.Show(1); });
        connect(&bar.button, &PictureButton::MouseUp, this, [&] { bar.Show(0); });
        QWindow* window = bar.window.windowHandle();
        for (int i = 0; i < 2; ++i) {
            QTest::mousePress(window, Qt::LeftButton, {}, {40, 40}); // through the window, as the real mouse comes
            QCoreApplication::processEvents();
            QVERIFY(bar.button.Visible(1) && !bar.button.Visible(0));
            QTest::mouseRelease(window, Qt::LeftButton, {}, {40, 40});
            QVERIFY(bar.button.Visible(0) && !bar.button.Visible(1));
        }
        QCOMPARE(bar.Log(), u"down0 up0 click0 down0 up0 click0"_s);
        bar.log.clear();
        bar.Show(1);
        QTest::mouseClick(&bar.button, Qt::LeftButton);
        QCOMPARE(bar.Log(), u"down1 up1 click1"_s);
    }

    void keys_data()
    {
        QTest::addColumn<int>("key");
        QTest::newRow("space") << int(Qt::Key_Space);
        QTest::newRow("return") << int(Qt::Key_Return);
        QTest::newRow("enter") << int(Qt::Key_Enter);
    }

    void keys()
    {
        QFETCH(int, key);
        Sidebar bar;
        QTest::keyClick(&bar.cell, Qt::Key_Tab);
        QVERIFY(bar.button.hasFocus());
        bar.Show(1);
        QTest::keyPress(&bar.button, Qt::Key(key));
        QCOMPARE(bar.Log(), u"down0"_s);
        QKeyEvent again(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(&bar.button, &again);
        QTest::keyRelease(&bar.button, Qt::Key(key));
        QCOMPARE(bar.Log(), u"down0 up0 click0"_s);
        QTest::keyPress(&bar.button, Qt::Key(key));
        bar.button.clearFocus();
        QTest::keyRelease(&bar.button, Qt::Key(key));
        QCOMPARE(bar.Log(), u"down0 up0 click0 down0 up0"_s);
    }

    void hidden()
    {
        Sidebar bar;
        bar.button.SetVisible(0, false);
        QTRY_VERIFY(bar.button.isHidden());
        bar.button.SetVisible(1, true);
        QVERIFY(bar.button.isVisible());
        connect(&bar.button, &PictureButton::MouseDown, this, [&] { bar.button.SetVisible(1, false); });
        QTest::mousePress(bar.window.windowHandle(), Qt::LeftButton, {}, {40, 40});
        QCoreApplication::processEvents();
        QTest::mouseRelease(bar.window.windowHandle(), Qt::LeftButton, {}, {40, 40});
        QCOMPARE(bar.Log(), u"down1 up1 click1"_s); // the release came though nothing was shown
        QTRY_VERIFY(bar.button.isHidden());
    }

    void swapKeepsTheFocus()
    {
        Sidebar bar;
        bar.button.setFocus(Qt::TabFocusReason);
        connect(&bar.button, &PictureButton::Click, this, [&] { bar.Show(bar.button.Visible(0) ? 1 : 0); });
        QTest::keyClick(&bar.button, Qt::Key_Space);
        QCoreApplication::processEvents();
        QVERIFY(bar.button.hasFocus() && bar.button.Visible(1));
    }

    void dialogTakesTheRelease()
    {
        Sidebar bar;
        QDialog dialog(&bar.window);
        connect(&bar.button, &PictureButton::MouseDown, &dialog, &QDialog::open);
        QTest::mousePress(bar.window.windowHandle(), Qt::LeftButton, {}, {40, 40});
        QTRY_COMPARE(bar.Log(), u"down0 up0"_s);
    }

    void tipsAndNames()
    {
        Sidebar bar;
        QCOMPARE(bar.button.toolTip(), u"Next month"_s);
        bar.Show(1);
        QCOMPARE(bar.button.toolTip(), u"Pressed"_s);
        QCOMPARE(bar.button.accessibleName(), u"Pressed"_s);
        QAccessibleInterface* access = QAccessible::queryAccessibleInterface(&bar.button);
        QCOMPARE(access->role(), QAccessible::Button);
        access->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(bar.Log(), u"down0 up0 click0"_s);
    }

    void longerArrays()
    {
        PictureButton spin({g_left, g_right, g_left}, 1);
        QVERIFY(spin.Visible(0) && !spin.Visible(1) && !spin.Visible(2));
        spin.ShowElement(2);
        const QImage released = spin.grab().toImage();
        QVERIFY(!spin.Visible(0) && !spin.Visible(1) && spin.Visible(2));
        spin.ShowElement(1);
        QVERIFY(spin.grab().toImage() != released);
        PictureButton stop({g_right, g_left}, 0); // pressed first
        const QImage pressed = stop.grab().toImage();
        stop.ShowElement(1);
        QCOMPARE(stop.grab().toImage(), released);
        QVERIFY(pressed != released);
    }

    // Each state can be told from the others by the eye.
    void looks()
    {
        Sidebar bar;
        QList<QImage> seen;
        const auto look = [&] {
            const QImage image = bar.button.grab().toImage();
            QVERIFY(!seen.contains(image));
            seen << image;
        };
        look();
        bar.button.SetFramed(true);
        look();
        bar.button.SetCaption(u"Month"_s);
        QVERIFY(bar.button.sizeHint().height() > 40);
        look();
        bar.button.setFocus(Qt::TabFocusReason);
        look();
        bar.button.clearFocus();
        QTest::mousePress(&bar.button, Qt::LeftButton);
        look();
        QTest::mouseRelease(&bar.button, Qt::LeftButton);
        bar.Show(1);
        look();
        bar.button.setEnabled(false);
        look();
    }
};

ORRELIN_TEST(PictureButtonTest)
#include "picturebuttontest.moc"
