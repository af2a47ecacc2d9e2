#include "platform/controls/orlcombo.h"

#include "platform/runtime/runtimeerror.h"
#include "testmain.h"

#include <QAbstractItemView>
#include <QFontDatabase>
#include <QMessageBox>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace {
// The events of a box in the order in which they came, each with the text of that moment.
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

class Note : public QTextEdit
{
public:
    using QTextEdit::QTextEdit;
    QList<Qt::FocusReason> Reasons;

protected:
    void focusInEvent(QFocusEvent* event) override
    {
        Reasons += event->reason();
        QTextEdit::focusInEvent(event);
    }
};

void ChooseByMouse(ORLCombo& combo, int row)
{
    QTest::mouseClick(&combo, Qt::LeftButton, {}, combo.rect().center());
    QTRY_VERIFY(combo.view()->isVisible());
    QTest::qWait(QApplication::doubleClickInterval() + 50); // a release this soon counts as that of the opening press
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
        QTest::keyClick(&sizes, Qt::Key_Delete); // a size cannot be taken away
        QCOMPARE(sizes.ListIndex(), 3);
    }

    void FontsAreReadWhenLookedInto()
    {
        ORLCombo fonts;
        fonts.FillFontNames();
        fonts.show();
        QVERIFY(QTest::qWaitForWindowExposed(&fonts));
        QCOMPARE(fonts.count(), 0);
        QVERIFY(fonts.ListCount() > 0);
        QCOMPARE(fonts.ListIndex(), -1);
        QSet<QString> names;
        for (int i = 0; i < fonts.ListCount(); ++i)
            names += fonts.List(i);
        QCOMPARE(names.size(), fonts.ListCount());
        for (const QString& family : QFontDatabase::families()) {
            if (!QFontDatabase::isPrivateFamily(family)) QVERIFY(names.contains(family.section(u" ["_s, 0, 0)));
        }

        ORLCombo keyed;
        keyed.FillFontNames();
        QTest::keyClick(&keyed, Qt::Key_Down);
        QCOMPARE(keyed.Text(), fonts.List(0));
    }

    void TheProgramRaisesNoEvent()
    {
        ORLCombo colors;
        colors.FillColors();
        const Record record(colors);
        colors.SetListIndex(9);
        QCOMPARE(colors.Text(), u"Red"_s);
        colors.SetListIndex(-1);
        QCOMPARE(colors.Text(), QString());
        colors.SetListIndex(9);
        const QImage listed = colors.grab().toImage();
        colors.ShowText(u"Rust"_s);
        QCOMPARE(colors.Text(), u"Rust"_s);
        QCOMPARE(colors.ListIndex(), 9);
        QVERIFY(colors.grab().toImage() != listed);
        colors.SetListIndex(9);
        QCOMPARE(colors.Text(), u"Red"_s);
        QVERIFY_EXCEPTION_THROWN(colors.SetListIndex(17), RunTimeError);
        QVERIFY_EXCEPTION_THROWN(colors.SetListIndex(-2), RunTimeError);
        QCOMPARE(record.Events, QStringList());
    }

    void EachSquareHasItsColor()
    {
        ORLCombo colors;
        colors.FillColors();
        colors.resize(colors.sizeHint());
        for (int i = 0; i < ORLCombo::BlankColor; ++i) {
            colors.SetListIndex(i);
            const QColor shown(colors.grab().toImage().pixel(15, colors.height() / 2));
            const QString name = colors.List(i).replace(u"sch"_s, u"chs"_s);
            QCOMPARE(shown, QColor(name));
        }
    }

    void TheMouseLeavesTheCaretInItsNote()
    {
        QWidget window;
        Note note(&window);
        note.setGeometry(0, 60, 300, 100);
        ORLCombo colors(&window);
        colors.FillColors();
        colors.resize(colors.sizeHint());
        window.show();
        note.setPlainText(u"buy bread"_s);
        note.setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(&note, Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
        const QString selected = note.textCursor().selectedText();
        QVERIFY(!selected.isEmpty());
        note.Reasons.clear();
        const Record record(colors);

        ChooseByMouse(colors, 13);
        QCOMPARE(record.Events, QStringList({u"Click"_s, u"Fuschia"_s}));
        // The box may show what the selection does not have, so the entry that it shows can be chosen.
        ChooseByMouse(colors, 13);
        QCOMPARE(record.Events.size(), 4);
        // A list that is closed without a choice changes nothing.
        QTest::mouseClick(&colors, Qt::LeftButton, {}, colors.rect().center());
        QTRY_VERIFY(colors.view()->isVisible());
        QTest::keyClick(colors.view(), Qt::Key_Escape);
        QTRY_VERIFY(!colors.view()->isVisible());
        QCOMPARE(record.Events.size(), 5);

        QTRY_COMPARE(QApplication::focusWidget(), &note);
        QCOMPARE(note.textCursor().selectedText(), selected);
        for (const auto reason : note.Reasons) {
            QVERIFY(reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason);
        }
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_X);
        QVERIFY(note.toPlainText().startsWith(u'x'));
    }

    void KeysChoose_data()
    {
        QTest::addColumn<QList<int>>("keys");
        QTest::addColumn<QStringList>("events");
        const QString click = u"Click"_s;
        QTest::newRow("arrow") << QList<int>{Qt::Key_Down} << QStringList{click, u"Maroon"_s};
        QTest::newRow("arrow at the end") << QList<int>{Qt::Key_Up} << QStringList{};
        QTest::newRow("letter") << QList<int>{Qt::Key_F} << QStringList{click, u"Fuschia"_s};
        QTest::newRow("list") << QList<int>{Qt::Key_F4, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}
                              << QStringList{click, u"Green"_s};
        QTest::newRow("list left, then an arrow")
            << QList<int>{Qt::Key_F4, Qt::Key_Escape, Qt::Key_Down} << QStringList{click, click, u"Maroon"_s};
    }

    void KeysChoose()
    {
        QFETCH(QList<int>, keys);
        QFETCH(QStringList, events);
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

    void TheListOpensAfterABoxThatClickShowed()
    {
        ORLCombo colors;
        colors.FillColors();
        colors.show();
        QVERIFY(QTest::qWaitForWindowActive(&colors));
        bool answered = false;
        connect(&colors, &ORLCombo::Click, &colors, [&] {
            QMessageBox box(QMessageBox::Information, QString(), u"Please lock the day"_s);
            QTimer::singleShot(0, &box, [&] {
                QTest::keyClick(&box, Qt::Key_Return);
                answered = true;
            });
            box.exec();
        });
        const Record record(colors);
        ChooseByMouse(colors, 4);
        QVERIFY(answered);
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
        const auto turn = [&] {
            QWheelEvent event(QPointF(5, 5), sizes.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(&sizes, &event);
        };
        sizes.clearFocus();
        turn();
        QCOMPARE(record.Events, QStringList());
        sizes.setFocus(Qt::TabFocusReason);
        turn();
        QCOMPARE(record.Events, QStringList({u"Click"_s, u"11"_s}));
    }
};

ORRELIN_TEST(ORLComboTest)
#include "orlcombotest.moc"
