#include "platform/controls/orlcombo.h"

#include "platform/runtime/runtimeerror.h"
#include "support.h"
#include "testmain.h"

#include <QAbstractItemView>
#include <QFontDatabase>
#include <QMessageBox>
#include <QTextEdit>
#include <QTimer>

namespace {
// The events of a box in order, each with the text at its time.
class Record : public QObject
{
public:
    explicit Record(ORLCombo& combo)
    {
        connect(&combo, &ORLCombo::Click, this, [this] { Events += u"Click"_s; });
        connect(&combo, &ORLCombo::Change, this, [this, &combo] { Events += combo.Text(); });
    }
    QStringList Events;
};

void ChooseByMouse(ORLCombo& combo, int row)
{
    QTest::mouseClick(&combo, Qt::LeftButton, {}, combo.rect().center());
    QTRY_VERIFY(combo.view()->isVisible());
    QTest::qWait(QApplication::doubleClickInterval() +
                 50); // an earlier release would count as that of the opening press
    const auto index = combo.model()->index(row, 0);
    QTest::mouseClick(combo.view()->viewport(), Qt::LeftButton, {}, combo.view()->visualRect(index).center());
    QTRY_VERIFY(!combo.view()->isVisible());
}
} // namespace

class ORLComboTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setDoubleClickInterval(50); }

    void TextsOfADialog()
    {
        ORLCombo tunes;
        tunes.FillTexts({u"b.wav"_s, u"a.mid"_s});
        QCOMPARE(tunes.Text(), QString());
        QCOMPARE(tunes.List(0) + tunes.List(1), u"b.wava.mid"_s);
        const Record record(tunes);
        QTest::keyClick(&tunes, Qt::Key_Down);
        QCOMPARE(tunes.Text(), u"b.wav"_s);
        QTest::keyClick(&tunes, Qt::Key_Delete);
        QCOMPARE(tunes.ListIndex(), -1);
        QCOMPARE(record.Events, QStringList({u"Click"_s, u"b.wav"_s, u"Click"_s, QString()}));
        ORLCombo sizes;
        sizes.FillFontSizes();
        sizes.SetListIndex(3);
        QTest::keyClick(&sizes, Qt::Key_Delete); // sizes cannot be deleted
        QCOMPARE(sizes.ListIndex(), 3);
    }

    void FontsAreReadWhenLookedInto()
    {
        ORLCombo fonts, keyed;
        fonts.FillFontNames();
        keyed.FillFontNames();
        QCOMPARE(fonts.count(), 0);
        QVERIFY(fonts.ListCount() > 0);
        QCOMPARE(fonts.ListIndex(), -1);
        QStringList names;
        for (int i = 0; i < fonts.ListCount(); ++i)
            names += fonts.List(i);
        QCOMPARE(names.removeDuplicates(), 0);
        for (const QString& family : QFontDatabase::families())
            QVERIFY(QFontDatabase::isPrivateFamily(family) || names.contains(family.section(u" ["_s, 0, 0)));
        QTest::keyClick(&keyed, Qt::Key_Down);
        QCOMPARE(keyed.Text(), names[0]);
    }

    void TheProgramRaisesNoEvent()
    {
        ORLCombo colors;
        colors.FillColors();
        colors.resize(colors.sizeHint());
        const Record record(colors);
        for (int i = 0; i < ORLCombo::BlankColor; ++i) {
            colors.SetListIndex(i);
            const QColor shown(colors.grab().toImage().pixel(15, colors.height() / 2));
            QCOMPARE(shown, QColor(colors.Text().replace(u"sch"_s, u"chs"_s)));
        }
        for (const int index : {-1, 9}) {
            colors.SetListIndex(index);
            const QString listed = colors.Text();
            const QImage look = colors.grab().toImage();
            colors.ShowText(u"Rust"_s);
            QCOMPARE(colors.Text(), u"Rust"_s);
            QCOMPARE(colors.ListIndex(), index);
            const QImage rust = colors.grab().toImage();
            colors.ShowText(u"Sand"_s);
            QVERIFY(colors.grab().toImage() != look && colors.grab().toImage() != rust);
            colors.SetListIndex(index);
            QCOMPARE(colors.Text(), listed);
            QCOMPARE(colors.grab().toImage(), look);
        }
        QVERIFY_EXCEPTION_THROWN(colors.SetListIndex(17), RunTimeError);
        QVERIFY_EXCEPTION_THROWN(colors.SetListIndex(-2), RunTimeError);
        QCOMPARE(record.Events, QStringList());
    }

    void TheMouseLeavesTheCaretInItsNote()
    {
        QWidget window;
        QTextEdit note(u"buy bread"_s, &window);
        note.setGeometry(0, 60, 300, 100);
        ORLCombo colors(&window);
        colors.FillColors();
        colors.resize(colors.sizeHint());
        window.show();
        note.setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        note.selectAll();
        const Record record(colors);
        ChooseByMouse(colors, 13);
        QCOMPARE(record.Events, QStringList({u"Click"_s, u"Fuschia"_s}));
        // The shown entry can be chosen: the selection may have another colour.
        ChooseByMouse(colors, 13);
        QCOMPARE(record.Events.size(), 4);
        // Closing the list without a choice changes nothing.
        QTest::mouseClick(&colors, Qt::LeftButton, {}, colors.rect().center());
        QTRY_VERIFY(colors.view()->isVisible());
        QTest::keyClick(colors.view(), Qt::Key_Escape);
        QTRY_VERIFY(!colors.view()->isVisible());
        QCOMPARE(record.Events.size(), 5);
        QTRY_COMPARE(QApplication::focusWidget(), &note);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_X);
        QCOMPARE(note.toPlainText(), u"x"_s); // the text was still selected
    }

    void KeysChoose()
    {
        const QString click = u"Click"_s;
        const std::tuple<const char*, QList<int>, QStringList> rows[] = {
            {"arrow", QList<int>{Qt::Key_Down}, QStringList{click, u"Maroon"_s}},
            {"arrow at the end", QList<int>{Qt::Key_Up}, QStringList{}},
            {"letter", QList<int>{Qt::Key_F}, QStringList{click, u"Fuschia"_s}},
            {"list", QList<int>{Qt::Key_F4, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return},
             QStringList{click, u"Green"_s}},
            {"list left, then an arrow", QList<int>{Qt::Key_F4, Qt::Key_Escape, Qt::Key_Down},
             QStringList{click, click, u"Maroon"_s}},
        };
        for (const auto& [name, keys, events] : rows) {
            const InRow inRow(this, name);
            ORLCombo colors;
            colors.FillColors();
            colors.SetListIndex(0);
            colors.show();
            QVERIFY(QTest::qWaitForWindowActive(&colors));
            colors.setFocus(Qt::TabFocusReason);
            const Record record(colors);
            for (const int key : keys) {
                const bool open = QApplication::activePopupWidget();
                QTest::keyClick(open ? static_cast<QWidget*>(colors.view()) : &colors, Qt::Key(key));
            }
            QCOMPARE(record.Events, events);
        }
    }

    void TheListOpensAfterABoxThatClickShowed()
    {
        ORLCombo colors;
        colors.FillColors();
        colors.show();
        QVERIFY(QTest::qWaitForWindowActive(&colors));
        const auto ask = [] {
            QMessageBox box;
            QTimer::singleShot(0, &box, [&] { QTest::keyClick(&box, Qt::Key_Escape); });
            box.exec();
        };
        connect(&colors, &ORLCombo::Click, &colors, ask);
        const Record record(colors);
        ChooseByMouse(colors, 4);
        QCOMPARE(record.Events, QStringList({u"Click"_s, u"Navy"_s}));
    }

    void TheWheelChoosesOnlyWithTheFocus()
    {
        ORLCombo sizes;
        sizes.FillFontSizes();
        sizes.SetListIndex(4);
        sizes.show();
        QVERIFY(QTest::qWaitForWindowActive(&sizes));
        const Record record(sizes);
        sizes.clearFocus();
        TurnWheel(sizes, -120);
        QCOMPARE(record.Events, QStringList());
        sizes.setFocus(Qt::TabFocusReason);
        TurnWheel(sizes, -120);
        QCOMPARE(record.Events, QStringList({u"Click"_s, u"11"_s}));
    }
};

ORRELIN_TEST(ORLComboTest)
#include "orlcombotest.moc"
