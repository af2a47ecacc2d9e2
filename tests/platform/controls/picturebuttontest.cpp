// Picture buttons under mouse and keyboard.
#include "platform/controls/picturebutton.h"

#include "platform/controls/resources.h"
#include "testmain.h"

#include <QAccessible>
#include <QDialog>
#include <QLineEdit>

namespace {
const QStringList g_pictures{u":/icons/week.svg"_s, u":/icons/week-pressed.svg"_s, u":/icons/left.svg"_s};

// A button as the sidebar uses it, and a record of its events.
struct Sidebar : QWidget
{
    Sidebar()
    {
        button.SetToolTip(0, u"Lock"_s);
        button.SetToolTip(1, u"Unlock"_s);
        button.setGeometry(10, 10, 60, 60);
        const auto record = [this](const QString& what) {
            return [this, what](int element) { log += what + QString::number(element) + u' '; };
        };
        connect(&button, &PictureButton::MouseDown, this, record(u"down"_s));
        connect(&button, &PictureButton::MouseUp, this, record(u"up"_s));
        connect(&button, &PictureButton::Click, this, record(u"click"_s));
        cell.setGeometry(0, 80, 90, 20);
        cell.setFocus();
        show();
        (void)QTest::qWaitForWindowActive(this);
    }
    QString Log() { return std::exchange(log, {}).trimmed(); }

    QLineEdit cell{this};
    PictureButton button{g_pictures, 1, this};
    QString log;
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
        QTest::mousePress(&bar.button, Qt::LeftButton);
        QTest::mouseMove(&bar.button, {-5, 5});
        QCOMPARE(bar.Log(), u"down0"_s); // stays pressed when the mouse leaves
        QTest::mouseRelease(&bar.button, Qt::LeftButton, {}, {-5, 5});
        QTest::mouseClick(&bar.button, Qt::RightButton);
        QCOMPARE(bar.Log(), u"up0"_s);
        QTest::mouseDClick(&bar.button, Qt::LeftButton); // as the second of two quick presses
        QTest::mouseRelease(&bar.button, Qt::LeftButton);
        QCOMPARE(bar.Log(), u"down0 up0 click0"_s);
        QVERIFY(bar.cell.hasFocus());
    }

    void swapUnderTheMouse()
    {
        Sidebar bar;
        connect(&bar.button, &PictureButton::MouseDown, this, [&] { bar.button.ShowElement(1); });
        connect(&bar.button, &PictureButton::MouseUp, this, [&] { bar.button.ShowElement(0); });
        QTest::mousePress(bar.windowHandle(), Qt::LeftButton, {}, {40, 40}); // through the window, as a real mouse does
        QVERIFY(bar.button.Visible(1) && !bar.button.Visible(0));
        QTest::mouseRelease(bar.windowHandle(), Qt::LeftButton, {}, {40, 40});
        QVERIFY(bar.button.Visible(0) && !bar.button.Visible(1));
        QCOMPARE(bar.Log(), u"down0 up0 click0"_s);
    }

    void keys()
    {
        Sidebar bar;
        bar.button.setFocus(Qt::TabFocusReason);
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
            QTest::keyPress(&bar.button, key);
            QKeyEvent again(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
            QCoreApplication::sendEvent(&bar.button, &again);
            QCOMPARE(bar.Log(), u"down0"_s);
            QTest::keyRelease(&bar.button, key);
            QCOMPARE(bar.Log(), u"up0 click0"_s);
        }
    }

    void theReleaseIsLost()
    {
        Sidebar bar;
        QDialog dialog(&bar);
        QTest::mousePress(&bar.button, Qt::LeftButton);
        dialog.open();
        QTRY_COMPARE(bar.log, u"down0 up0 "_s);
        dialog.close();
        bar.log.clear();
        QTest::mousePress(&bar.button, Qt::LeftButton);
        bar.button.ShowElement(PictureButton::NoElement);
        QVERIFY(bar.button.isHidden());
        QCOMPARE(bar.Log(), u"down0 up0"_s);
        bar.button.ShowElement(1);
        QTest::mouseClick(&bar.button, Qt::LeftButton);
        QCOMPARE(bar.Log(), u"down1 up1 click1"_s);
    }

    void isReadOut()
    {
        Sidebar bar;
        QAccessibleInterface* access = QAccessible::queryAccessibleInterface(&bar.button);
        QVERIFY(!access->state().checkable);
        bar.button.ShowElement(1);
        QVERIFY(access->state().checkable && access->state().checked);
        QCOMPARE(access->role(), QAccessible::Button);
        QCOMPARE(access->text(QAccessible::Name), u"Unlock"_s);
        QCOMPARE(bar.button.toolTip(), u"Unlock"_s);
        access->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QTRY_COMPARE(bar.log, u"down1 up1 click1 "_s);
    }
};

ORRELIN_TEST(PictureButtonTest)
#include "picturebuttontest.moc"
