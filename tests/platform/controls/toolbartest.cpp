// The bar of buttons and combos under mouse and keyboard, and the look of each button state.
#include "platform/controls/toolbar.h"

#include "errorof.h"
#include "platform/controls/picturebutton.h"
#include "platform/controls/resources.h"
#include "testmain.h"

#include <QMessageBox>
#include <QSignalSpy>
#include <QTextEdit>
#include <QTimer>

namespace {
struct Control : QWidget
{
    using QWidget::QWidget;
    QSize sizeHint() const override { return {Wanted, 28}; }
    QSize minimumSizeHint() const override { return {40, 28}; }
    int Wanted = 100;
};

struct Window : QWidget
{
    Window()
    {
        resize(600, 300);
        Note.setGeometry(0, 100, 300, 100);
        AddButton(u"new"_s);
        AddButton(u"bold"_s);
        Bar.AddSeparator();
        for (Control* control : {&Color, &Size})
            Bar.AddControl(control);
        AddButton(u"cut"_s);
        Bar.resize(600, Bar.sizeHint().height());
        Bar.move(0, 7);
    }
    void AddButton(const QString& key) { Bar.AddButton(key, u"tip of "_s + key, u":/icons/%1.svg"_s.arg(key)); }
    bool Open()
    {
        show();
        Note.setFocus();
        return QTest::qWaitForWindowActive(this);
    }
    ToolbarButton& Bold() { return Bar.Buttons(u"bold"_s); }

    QTextEdit Note{this};
    Toolbar Bar{this};
    Control Color{&Bar}, Size{&Bar};
};

// Whether each of these button states looks different.
void LookDifferent(QWidget& window, QWidget& button, const QList<std::function<void()>>& states)
{
    QList<QImage> looks;
    for (const auto& enter : states) {
        enter();
        const QImage look = window.grab(QRect(button.mapTo(&window, QPoint()), button.size())).toImage();
        QVERIFY2(!looks.contains(look), qPrintable(QString::number(looks.size())));
        looks += look;
    }
}
} // namespace

class ToolbarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { InitResources(); }

    void AClickTellsTheKeyAndNothingMore()
    {
        Window window;
        QVERIFY(window.Open());
        QSignalSpy clicks(&window.Bar, &Toolbar::ButtonClick);
        window.Bold().SetValue(1);
        QTest::mouseClick(&window.Bold(), Qt::LeftButton);
        QCOMPARE(window.Bold().Value(), 1);
        QCOMPARE(QApplication::focusWidget(), &window.Note);
        const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
        window.Note.setTabChangesFocus(true);
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Space, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return})
            press(key);
        QCOMPARE(clicks, (QList<QVariantList>{{u"bold"_s}, {u"new"_s}, {u"cut"_s}}));
        QCOMPARE(ErrorOf([&] { window.Bar.Buttons(u"none"_s); }), int(Toolbar::ElementNotFound));
    }

    void StatesLookDifferent()
    {
        Window window;
        QVERIFY(window.Open());
        ToolbarButton& bold = window.Bold();
        LookDifferent(window, bold,
                      {[&] {}, [&] { bold.SetValue(1); }, [&] { bold.SetMixedState(true); },
                       [&] { bold.setFocus(Qt::TabFocusReason); }, [&] { bold.setDown(true); },
                       [&] { bold.setEnabled(false); }});
        PictureButton picture({u":/icons/month.svg"_s, u":/icons/month.svg"_s}, 1, &window);
        picture.setGeometry(400, 100, 80, 80);
        picture.show();
        const auto hover = [&] { QTest::mouseMove(window.windowHandle(), picture.geometry().center()); };
        LookDifferent(window, picture,
                      {[&] {}, hover, [&] { picture.SetFramed(true); }, [&] { picture.setText(u"Month"_s); },
                       [&] { picture.setFocus(Qt::TabFocusReason); }, [&] { picture.ShowElement(1); },
                       [&] { window.Note.setFocus(); }, [&] { picture.setEnabled(false); }});
    }

    void ControlsGiveWayInANarrowBar()
    {
        Window window;
        QVERIFY(window.Open());
        const int whole = window.Bar.minimumWidth();
        const auto widths = [&](int missing) {
            window.Bar.SetRoom(whole - missing);
            window.Bar.resize(whole - missing, window.Bar.height());
            return QList{window.Color.width(), window.Size.width(), whole - window.Bar.minimumWidth()};
        };
        QCOMPARE(widths(30), QList({100, 70, 30})); // the rightmost combo shrinks first
        QCOMPARE(widths(90), QList({70, 40, 90}));
        QCOMPARE(widths(200), QList({40, 40, 120})); // any less cuts off the bar
        QCOMPARE(widths(-50), QList({100, 100, 0}));
        window.Bar.resize(600, window.Bar.height());
        window.Size.hide(); // hidden until it is filled
        const int x = window.Bar.Buttons(u"cut"_s).x();
        window.Color.Wanted = 130; // as after a change of the desktop's font
        window.Color.updateGeometry();
        QTRY_COMPARE(window.Color.width(), 130);
        QTRY_COMPARE(window.Bar.Buttons(u"cut"_s).x(), x + 30);
        QCOMPARE(window.Size.x(), x + 30 - window.Size.width() - 2);
    }

    void ADragEndsWhereItIsLetGo()
    {
        // from: a button, empty for the free area; to: relative to the press
        const std::tuple<const char*, QString, QPoint, QString, bool> rows[] = {
            {"free area", u""_s, QPoint(-20, 230), u""_s, true},
            {"hardly moved", u""_s, QPoint(2, 2), u""_s, false},
            {"button", u"bold"_s, QPoint(5, 200), u""_s, false},
            {"disabled button", u"new"_s, QPoint(5, 200), u""_s, false},
            {"Esc", u""_s, QPoint(5, 200), u"Esc"_s, false},
            {"a box opens", u""_s, QPoint(5, 200), u"box"_s, false},
            {"the bar goes", u""_s, QPoint(5, 200), u"hide"_s, false},
        };
        for (const auto& [name, from, to, meanwhile, dropped] : rows) {
            const InRow inRow(this, name);
            Window window;
            window.Bar.Buttons(u"new"_s).setEnabled(false);
            QVERIFY(window.Open());
            QSignalSpy drops(&window.Bar, &Toolbar::Dropped);
            QPoint start(500, 20);
            if (!from.isEmpty()) start = window.Bar.Buttons(from).geometry().center();
            // Through the window, so that the press finds its widget as a real press does.
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
    }

    void NeighboursStayOnTop()
    {
        Window window;
        QToolButton over(&window);
        over.setGeometry(520, 12, 30, 30);
        window.Bar.raise();
        QVERIFY(window.Open());
        QTest::mouseClick(&window.Bar, Qt::LeftButton, {}, QPoint(500, 20));
        QCOMPARE(window.childAt(over.geometry().center()), &over);
    }
};

ORRELIN_TEST(ToolbarTest)
#include "toolbartest.moc"
