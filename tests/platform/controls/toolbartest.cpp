#include "platform/controls/toolbar.h"

#include "platform/controls/resources.h"
#include "platform/runtime/runtimeerror.h"

#include <QFile>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>
#include <QTimer>

#include <functional>

using namespace Qt::StringLiterals;

namespace {
bool SvgIsLoaded()
{
    QFile maps(u"/proc/self/maps"_s);
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("libQt6Svg.so");
}

// How far the darkest point of a picture is from white.
int Ink(const QImage& image)
{
    const QImage gray = image.convertToFormat(QImage::Format_Grayscale8);
    int darkest = 255;
    for (int y = 0; y < gray.height(); ++y) {
        darkest = std::min<int>(darkest, *std::min_element(gray.scanLine(y), gray.scanLine(y) + gray.width()));
    }
    return 255 - darkest;
}

struct Window : QWidget
{
    Window()
    {
        resize(600, 300);
        Note.setGeometry(0, 100, 300, 100);
        Note.setTabChangesFocus(true);
        AddButton(u"new"_s);
        AddButton(u"bold"_s);
        Bar.AddSeparator();
        Bar.AddPlaceholder(u"color"_s, 50);
        Bar.AddPlaceholder(u"size"_s, 50);
        AddButton(u"cut"_s);
        Bar.setGeometry(0, 7, 600, Bar.sizeHint().height());
    }
    void AddButton(const QString& key) { Bar.AddButton(key, u"tip of "_s + key, u":/icons/%1.svg"_s.arg(key)); }
    bool Open()
    {
        show();
        Note.setFocus();
        return QTest::qWaitForWindowActive(this);
    }
    ToolbarButton& Bold() { return Bar.Buttons(u"bold"_s); }
    QRect Place(const QString& key) { return Bar.Placeholder(key).geometry(); }

    QTextEdit Note{this};
    Toolbar Bar{this};
    QSignalSpy Clicks{&Bar, &Toolbar::ButtonClick};
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
        QList<QImage> drawn;
        for (const QString& key : u"open save copy paste italic underline strikethru datediff day week month print "
                                  "recurring alarm refresh lock unlock new bold cut"_s.split(u' ')) {
            if (!window.Bar.Keys().contains(key)) window.AddButton(key);
            const QImage picture = window.Bar.Buttons(key).grab().toImage();
            QVERIFY2(Ink(picture) > 150 && !drawn.contains(picture), qPrintable(key));
            drawn += picture;
        }
        QVERIFY(SvgIsLoaded());
    }

    void AClickTellsTheKeyAndNothingMore()
    {
        Window window;
        QVERIFY(window.Open());
        QTest::mouseClick(&window.Bold(), Qt::LeftButton);
        QCOMPARE(QApplication::focusWidget(), &window.Note);
        window.Bold().SetValue(1);
        QTest::mouseClick(&window.Bold(), Qt::LeftButton);
        QVERIFY(window.Bold().Value() == 1 && window.Bold().isChecked() && !window.Bold().MixedState());
        window.Bold().setEnabled(false);
        QTest::mouseClick(&window.Bold(), Qt::LeftButton);
        QCOMPARE(window.Clicks, (QList<QVariantList>{{u"bold"_s}, {u"bold"_s}}));
    }

    void KeysReachEveryButton()
    {
        Window window;
        QVERIFY(window.Open());
        for (const auto key : {Qt::Key_Tab, Qt::Key_Space, Qt::Key_Right, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Space}) {
            QTest::keyClick(QApplication::focusWidget(), key);
        }
        QCOMPARE(window.Clicks, (QList<QVariantList>{{u"new"_s}, {u"bold"_s}, {u"cut"_s}}));
        QCOMPARE(window.Bold().accessibleName(), u"tip of bold"_s);
    }

    void StatesLookDifferent()
    {
        Window window;
        QVERIFY(window.Open());
        ToolbarButton& bold = window.Bold();
        const std::function<void()> changes[] = {
            [] {},
            [&] { bold.SetValue(1); },
            [&] { bold.SetMixedState(true); },
            [&] { bold.SetMixedState(false), bold.SetValue(0), bold.setFocus(Qt::TabFocusReason); },
            [&] { window.Note.setFocus(), bold.setDown(true); },
            [&] { bold.setDown(false), bold.setEnabled(false); },
        };
        QList<QImage> looks;
        for (const auto& change : changes) {
            change();
            const QImage look = bold.grab().toImage();
            QVERIFY(!looks.contains(look));
            looks += look;
        }
        QVERIFY(Ink(looks.last()) < Ink(looks.first()) / 2);
    }

    void PlacesAreKnownBeforeTheBarIsShown()
    {
        Window window;
        const int before = window.Place(u"size"_s).x();
        window.Bar.Placeholder(u"color"_s).setFixedWidth(120);
        const QRect unshown = window.Place(u"size"_s);
        QCOMPARE(unshown.x(), before + 70);
        QVERIFY(window.Open());
        QVERIFY(window.Place(u"color"_s).x() > window.Bold().geometry().right());
        window.Bar.resize(40, window.Bar.height()); // too narrow: nothing is pushed together
        QCOMPARE(window.Place(u"size"_s), unshown);
        QCOMPARE(window.Bar.Keys().join(u' '), u"new bold color size cut"_s);
        QVERIFY_EXCEPTION_THROWN(window.Bar.Placeholder(u"none"_s), RunTimeError);
        QVERIFY_EXCEPTION_THROWN(window.Bar.Buttons(u"color"_s), RunTimeError);
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
        QWidget combo(&window);
        combo.setGeometry(window.Place(u"color"_s).translated(window.Bar.pos()));
        QVERIFY(window.Open());
        window.Bar.raise();
        QSignalSpy drops(&window.Bar, &Toolbar::Dropped);
        const QPoint start = from.isEmpty() ? QPoint(500, 27) : window.Place(from).center() + window.Bar.pos();
        QWindow* handle = window.windowHandle(); // finds the widget under the mouse as a real press does
        QTest::mousePress(handle, Qt::LeftButton, {}, start);
        QTest::mouseMove(handle, start + to / 2);
        QTest::mouseMove(handle, start + to);
        if (const auto* outline = window.findChild<QRubberBand*>()) {
            QVERIFY(dropped || !meanwhile.isEmpty());
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
        QTest::mouseRelease(handle, Qt::LeftButton, {}, start + to);
        QCOMPARE(drops, dropped ? (QList<QVariantList>{{start + to}}) : QList<QVariantList>{});
        QVERIFY(!window.findChild<QRubberBand*>());
        QCOMPARE(window.Bar.cursor().shape(), Qt::ArrowCursor);
        // What is laid over the bar stays on top of it.
        if (from != u"bold") QCOMPARE(window.childAt(combo.geometry().center()), &combo);
    }
};

QTEST_MAIN(ToolbarTest)
#include "toolbartest.moc"
