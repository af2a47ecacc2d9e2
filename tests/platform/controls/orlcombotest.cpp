#include "platform/controls/orlcombo.h"

#include "platform/runtime/runtimeerror.h"

#include <QAbstractItemView>
#include <QFontDatabase>
#include <QMessageBox>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace {
struct Colors : ORLCombo
{
    explicit Colors(QWidget* parent = nullptr) : ORLCombo(parent)
    {
        FillColors();
        resize(sizeHint());
        connect(this, &ORLCombo::Click, this, [this] { Events += "Click"_L1; });
        connect(this, &ORLCombo::Change, this, [this] { Events += Text(); });
    }
    void Open()
    {
        QTest::mouseClick(this, Qt::LeftButton, {}, rect().center());
        QTRY_VERIFY(view()->isVisible());
        QTest::qWait(QApplication::doubleClickInterval() + 50); // a release this soon would count as the opening one's
    }
    void Choose(int row)
    {
        Open();
        const auto place = view()->visualRect(model()->index(row, 0)).center();
        QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, place);
        QTRY_VERIFY(!view()->isVisible());
    }
    QStringList Events; // each Change as the text of that moment
};

struct Note : QTextEdit
{
    using QTextEdit::QTextEdit;
    QSet<Qt::FocusReason> Reasons;
    void focusInEvent(QFocusEvent* event) override
    {
        Reasons += event->reason();
        QTextEdit::focusInEvent(event);
    }
};
} // namespace

class ORLComboTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void FontsAreReadWhenLookedInto()
    {
        ORLCombo fonts, keyed;
        fonts.FillFontNames();
        keyed.FillFontNames();
        fonts.show();
        QVERIFY(QTest::qWaitForWindowExposed(&fonts));
        QCOMPARE(fonts.count(), 0);
        QSet<QString> names;
        for (int i = 0; i < fonts.ListCount(); ++i)
            names += fonts.List(i);
        QCOMPARE(fonts.ListIndex(), -1);
        QCOMPARE(names.size(), fonts.ListCount());
        for (const QString& family : QFontDatabase::families()) {
            QVERIFY(QFontDatabase::isPrivateFamily(family) || names.contains(family.section(" ["_L1, 0, 0)));
        }
        QTest::keyClick(&keyed, Qt::Key_Down);
        QCOMPARE(keyed.Text(), fonts.List(0));
    }

    void TheProgramChoosesInSilence()
    {
        Colors colors;
        QCOMPARE(colors.ListIndex(), -1);
        for (int i = 0; i < ORLCombo::BlankColor; ++i) {
            colors.SetListIndex(i);
            const QColor square(colors.grab().toImage().pixel(15, colors.height() / 2));
            QCOMPARE(square, QColor(colors.Text().replace("Fuschia"_L1, "fuchsia"_L1)));
        }
        colors.SetListIndex(ORLCombo::BlankColor);
        QCOMPARE(colors.Text(), QString());
        QVERIFY_EXCEPTION_THROWN(colors.SetListIndex(17), RunTimeError);
        QVERIFY_EXCEPTION_THROWN(colors.SetListIndex(-2), RunTimeError);
        QCOMPARE(colors.Events, QStringList());
    }

    void TheMouseLeavesTheCaretInItsNote()
    {
        QWidget window;
        Note note(&window);
        note.setGeometry(0, 60, 300, 100);
        note.setPlainText(u"bread"_s);
        Colors colors(&window);
        window.show();
        note.setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        note.moveCursor(QTextCursor::Right, QTextCursor::KeepAnchor);
        note.Reasons.clear();
        colors.Choose(13);
        colors.Choose(13); // what the box shows need not be what the selection has
        colors.Open();
        QTest::keyClick(colors.view(), Qt::Key_Escape);
        QTRY_COMPARE(QApplication::focusWidget(), &note);
        QCOMPARE(colors.Events.join(u' '), u"Click Fuschia Click Fuschia Click"_s);
        note.Reasons -= {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason};
        QVERIFY(note.Reasons.isEmpty());
        QTest::keyClick(&note, Qt::Key_T);
        QCOMPARE(note.toPlainText(), u"tread"_s);
    }

    void TheListOpensAfterABoxThatClickShowed()
    {
        Colors colors;
        colors.show();
        QVERIFY(QTest::qWaitForWindowActive(&colors));
        connect(&colors, &ORLCombo::Click, &colors, [&] {
            QMessageBox box;
            QTimer::singleShot(0, &box, [&] { QTest::keyClick(&box, Qt::Key_Escape); });
            box.exec();
            colors.Events += u"box"_s;
        });
        colors.Choose(4);
        QCOMPARE(colors.Events.join(u' '), u"Click box Navy"_s);
    }

    void KeysChoose_data()
    {
        QTest::addColumn<QList<int>>("keys");
        QTest::addColumn<QString>("events");
        QTest::newRow("arrow") << QList<int>{Qt::Key_Down} << u"Click Maroon"_s;
        QTest::newRow("arrow at the end") << QList<int>{Qt::Key_Up} << QString();
        QTest::newRow("letter") << QList<int>{Qt::Key_F} << u"Click Fuschia"_s;
        QTest::newRow("list") << QList<int>{Qt::Key_F4, Qt::Key_Down, Qt::Key_Return} << u"Click Maroon"_s;
        QTest::newRow("list left") << QList<int>{Qt::Key_F4, Qt::Key_Escape, Qt::Key_Down} << u"Click Click Maroon"_s;
    }

    void KeysChoose()
    {
        QFETCH(QList<int>, keys);
        QFETCH(QString, events);
        Colors colors;
        colors.SetListIndex(0);
        colors.show();
        QVERIFY(QTest::qWaitForWindowActive(&colors));
        colors.setFocus(Qt::TabFocusReason);
        for (const int key : keys) {
            const bool open = QApplication::activePopupWidget();
            QTest::keyClick(open ? static_cast<QWidget*>(colors.view()) : &colors, Qt::Key(key));
        }
        QCOMPARE(colors.Events.join(u' '), events);
    }

    void TheWheelChoosesOnlyWithTheFocus()
    {
        Colors colors;
        colors.show();
        QVERIFY(QTest::qWaitForWindowActive(&colors));
        for (const bool focus : {false, true}) {
            focus ? colors.setFocus() : colors.clearFocus();
            QWheelEvent turn({5, 5}, colors.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {}, Qt::NoScrollPhase,
                             false);
            QApplication::sendEvent(&colors, &turn);
            QCOMPARE(colors.Events.size(), focus ? 2 : 0);
        }
    }
};

QTEST_MAIN(ORLComboTest)
#include "orlcombotest.moc"
