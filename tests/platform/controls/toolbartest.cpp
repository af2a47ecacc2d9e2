#include "platform/controls/toolbar.h"

#include "errorof.h"
#include "platform/controls/resources.h"
#include "testmain.h"

#include <QFile>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>
#include <QTimer>

namespace {
bool SvgIsLoaded()
{
    QFile maps(u"/proc/self/maps"_s);
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("libQt6Svg.so");
}

QString PictureOf(const QString& key)
{
    return u":/icons/%1.svg"_s.arg(key);
}

// How far the darkest point of a picture is from white.
int Ink(const QImage& image)
{
    int ink = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            ink = std::max(ink, 255 - qGray(image.pixel(x, y)));
    }
    return ink;
}

struct Window : QWidget
{
    Window()
    {
        resize(600, 300);
        Note.setGeometry(0, 100, 300, 100);
        AddButton(u"new"_s);
        AddButton(u"bold"_s);
        Bar.AddSeparator();
        for (const QString& key : {u"color"_s, u"size"_s}) {
            Bar.AddPlaceholder(key);
            Place(key).setFixedWidth(50);
        }
        AddButton(u"cut"_s);
        Bar.resize(600, Bar.sizeHint().height());
        Bar.move(0, 7);
    }
    QWidget& Place(const QString& key) const { return *Bar.findChild<QWidget*>(key); }
    void AddButton(const QString& key) { Bar.AddButton(key, u"tip of "_s + key, PictureOf(key)); }
    bool Open()
    {
        show();
        Note.setFocus();
        return QTest::qWaitForWindowActive(this);
    }
    ToolbarButton& Bold() { return Bar.Buttons(u"bold"_s); }

    QTextEdit Note{this};
    Toolbar Bar{this};
};
} // namespace

class ToolbarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { InitResources(); }

    void PicturesWaitForTheFirstPaint() // runs before anything else is painted
    {
        Window window;
        QVERIFY(!SvgIsLoaded());
        window.grab();
        QVERIFY(SvgIsLoaded());
    }

    void EveryPictureDraws_data()
    {
        QTest::addColumn<QString>("key");
        for (const char* key :
             {"new",      "open", "save", "cut",   "copy",  "paste",     "bold",  "italic",  "underline", "strikethru",
              "datediff", "day",  "week", "month", "print", "recurring", "alarm", "refresh", "lock",      "unlock"}) {
            QTest::newRow(key) << QString::fromLatin1(key);
        }
    }

    void EveryPictureDraws()
    {
        QFETCH(QString, key);
        Window window;
        window.Bar.AddButton(u"picture"_s, QString(), PictureOf(key));
        const QImage picture = window.Bar.Buttons(u"picture"_s).grab().toImage();
        QVERIFY(Ink(picture) > 150);
        QCOMPARE(picture.pixel(16, 1), picture.pixel(16, 28)); // nothing reaches the button's edge
        static QList<QImage> drawn;
        QVERIFY(!drawn.contains(picture));
        drawn += picture;
    }

    void AClickTellsTheKeyAndNothingMore()
    {
        Window window;
        QVERIFY(window.Open());
        QSignalSpy clicks(&window.Bar, &Toolbar::ButtonClick);
        QTest::mouseClick(&window.Bold(), Qt::LeftButton);
        QCOMPARE(QApplication::focusWidget(), &window.Note);
        window.Bold().SetValue(1);
        QTest::mouseClick(&window.Bold(), Qt::LeftButton);
        QCOMPARE(window.Bold().Value(), 1);
        QVERIFY(window.Bold().isChecked() && !window.Bold().MixedState());
        window.Bold().setEnabled(false);
        QTest::mouseClick(&window.Bold(), Qt::LeftButton);
        QCOMPARE(clicks, (QList<QVariantList>{{u"bold"_s}, {u"bold"_s}}));
    }

    void KeysReachEveryButton()
    {
        Window window;
        QVERIFY(window.Open());
        window.Note.setTabChangesFocus(true);
        QSignalSpy clicks(&window.Bar, &Toolbar::ButtonClick);
        const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
        press(Qt::Key_Tab);
        press(Qt::Key_Space);
        press(Qt::Key_Right);
        press(Qt::Key_Return);
        press(Qt::Key_Tab);
        press(Qt::Key_Space);
        press(Qt::Key_Left);
        QCOMPARE(QApplication::focusWidget(), &window.Bold());
        QCOMPARE(clicks, (QList<QVariantList>{{u"new"_s}, {u"bold"_s}, {u"cut"_s}}));
        QCOMPARE(window.Bold().accessibleName(), u"tip of bold"_s);
        QCOMPARE(window.Bold().toolTip(), window.Bold().accessibleName());
    }

    void StatesLookDifferent()
    {
        Window window;
        QVERIFY(window.Open());
        ToolbarButton& bold = window.Bold();
        const auto look = [&] { return window.grab(QRect(bold.mapTo(&window, QPoint()), bold.size())).toImage(); };
        QList<QImage> looks{look()};
        bold.SetValue(1);
        looks += look();
        bold.SetMixedState(true);
        looks += look();
        bold.SetValue(0);
        QCOMPARE(look(), looks.last()); // greyed, whatever the value
        bold.SetMixedState(false);
        QCOMPARE(look(), looks.first());
        bold.setFocus(Qt::TabFocusReason);
        looks += look();
        window.Note.setFocus();
        bold.setDown(true);
        looks += look();
        bold.setDown(false);
        bold.setEnabled(false);
        looks += look();
        for (qsizetype i = 0; i < looks.size(); ++i)
            QCOMPARE(looks.indexOf(looks[i]), i);
        QVERIFY(Ink(looks.last()) < Ink(looks.first()) / 2);
    }

    void ControlsGiveWayInANarrowBar()
    {
        struct Control : QWidget
        {
            using QWidget::QWidget;
            QSize sizeHint() const override { return {Wanted, 28}; }
            QSize minimumSizeHint() const override { return {40, 28}; }
            int Wanted = 100;
        };
        Window window;
        Control color(&window.Bar), size(&window.Bar);
        window.Bar.Lay(u"color"_s, &color);
        window.Bar.Lay(u"size"_s, &size);
        const int whole = window.Bar.minimumWidth();
        const auto widths = [&](int missing) {
            window.Bar.SetRoom(whole - missing);
            return QList{color.width(), size.width(), whole - window.Bar.minimumWidth()};
        };
        QCOMPARE(widths(30), QList({100, 70, 30})); // the rightmost first
        QCOMPARE(widths(90), QList({70, 40, 90}));
        QCOMPARE(widths(200), QList({40, 40, 120})); // then the bar is cut off
        QCOMPARE(widths(-50), QList({100, 100, 0}));
        QVERIFY(size.x() > color.geometry().right());
        QVERIFY(window.Open());
        color.Wanted = 130; // as after a change of the desktop's font
        color.updateGeometry();
        QTRY_COMPARE(color.width(), 130);
        QCOMPARE(size.x(), window.Place(u"size"_s).x());
    }

    void UnknownKeysAreAnError()
    {
        Window window;
        for (const char* key : {"none", "color"})
            QCOMPARE(ErrorOf([&] { window.Bar.Buttons(QString::fromLatin1(key)); }), 35601);
    }

    void ADragEndsWhereItIsLetGo_data()
    {
        QTest::addColumn<QString>("from"); // a key, or none for the free end
        QTest::addColumn<QPoint>("to");    // from the point of the press
        QTest::addColumn<QString>("meanwhile");
        QTest::addColumn<bool>("dropped");
        QTest::newRow("free area") << QString() << QPoint(-20, 230) << QString() << true;
        QTest::newRow("placeholder") << u"size"_s << QPoint(5, 200) << QString() << true;
        QTest::newRow("hardly moved") << QString() << QPoint(2, 2) << QString() << false;
        QTest::newRow("button") << u"bold"_s << QPoint(5, 200) << QString() << false;
        QTest::newRow("disabled button") << u"new"_s << QPoint(5, 200) << QString() << false;
        QTest::newRow("Esc") << QString() << QPoint(5, 200) << u"Esc"_s << false;
        QTest::newRow("a box opens") << QString() << QPoint(5, 200) << u"box"_s << false;
        QTest::newRow("the bar goes") << QString() << QPoint(5, 200) << u"hide"_s << false;
    }

    void ADragEndsWhereItIsLetGo()
    {
        QFETCH(QString, from);
        QFETCH(QPoint, to);
        QFETCH(QString, meanwhile);
        QFETCH(bool, dropped);
        Window window;
        window.Bar.Buttons(u"new"_s).setEnabled(false);
        QVERIFY(window.Open());
        QSignalSpy drops(&window.Bar, &Toolbar::Dropped);
        QPoint start(500, 20);
        if (!from.isEmpty()) start = window.Place(from).geometry().center();
        // Through the window, so that the press finds its widget as a real one does.
        const QPoint point = start + window.Bar.pos();
        QWindow* handle = window.windowHandle();
        QTest::mousePress(handle, Qt::LeftButton, {}, point);
        QTest::mouseMove(handle, point + to / 2);
        QTest::mouseMove(handle, point + to);
        const auto* outline = window.findChild<QRubberBand*>();
        QCOMPARE(outline != nullptr, dropped || !meanwhile.isEmpty());
        if (outline) {
            QCOMPARE(outline->geometry(), window.Bar.geometry().translated(to));
            QCOMPARE(window.Bar.cursor().shape(), Qt::SizeAllCursor);
        }
        if (meanwhile == u"Esc") QTest::keyClick(&window.Note, Qt::Key_Escape);
        if (meanwhile == u"hide") window.Bar.hide();
        if (meanwhile == u"box") {
            QMessageBox box(&window);
            QTimer::singleShot(0, &box, &QDialog::reject);
            box.exec();
        }
        QTest::mouseRelease(handle, Qt::LeftButton, {}, point + to);
        QCOMPARE(drops, dropped ? (QList<QVariantList>{{point + to}}) : QList<QVariantList>{});
        QVERIFY(!window.findChild<QRubberBand*>());
        QCOMPARE(window.Bar.cursor().shape(), Qt::ArrowCursor);
        QTest::keyClick(&window.Note, Qt::Key_A);
        QCOMPARE(window.Note.toPlainText(), u"a"_s);
    }

    void ControlsLaidOverTheBarStayOnTop()
    {
        Window window;
        QToolButton combo(&window);
        combo.setGeometry(window.Place(u"color"_s).geometry().translated(window.Bar.pos()));
        window.Bar.raise();
        QVERIFY(window.Open());
        QTest::mouseClick(&window.Bar, Qt::LeftButton, {}, QPoint(500, 20));
        QCOMPARE(window.childAt(combo.geometry().center()), &combo);
    }
};

ORRELIN_TEST(ToolbarTest)
#include "toolbartest.moc"
