// Focus, mouse, keys, input methods, paste and drop of the rich text box.
#include "notes.h"
#include "testmain.h"

#include <QClipboard>
#include <QDialog>
#include <QFocusEvent>
#include <QSignalSpy>
#include <QTextBlock>

namespace {
// A window with two boxes and a record of their events. The first box has the focus.
struct Boxes
{
    Boxes()
    {
        window.resize(400, 200);
        first.setGeometry(0, 0, 200, 200);
        second.setGeometry(200, 0, 200, 200);
        first.SetText(u"first"_s);
        second.SetText(u"second"_s);
        window.show();
        window.activateWindow();
        (void)QTest::qWaitForWindowActive(&window);
        first.setFocus();
        Record(first, u"1"_s);
        Record(second, u"2"_s);
    }

    void Record(RichTextBox& box, const QString& name)
    {
        QObject::connect(&box, &RichTextBox::GotFocus, &window, [=, this] { log << name + u"focus"_s; });
        QObject::connect(&box, &RichTextBox::Click, &window, [=, this] { log << name + u"click"_s; });
        QObject::connect(&box, &RichTextBox::MouseDown, &window, [=, this](int button, const QPoint& at) {
            log << name + u"down%1"_s.arg(button);
            pressed = at;
        });
    }

    QWidget window;
    RichTextBox first{&window};
    RichTextBox second{&window};
    QStringList log;
    QPoint pressed;
};

QStringList List(const char* words)
{
    return QString::fromLatin1(words).split(u' ');
}

void SendPreedit(RichTextBox& box, const QString& preedit, const QString& commit = {})
{
    QInputMethodEvent event(preedit, {});
    event.setCommitString(commit);
    QCoreApplication::sendEvent(&box, &event);
}

bool DropText(RichTextBox& box, const QString& text)
{
    QMimeData data;
    data.setText(text);
    return Drop(box, data, {190, 190});
}
} // namespace

class RichTextBoxInputTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clickComesInOrder()
    {
        Boxes boxes;
        QTest::mouseClick(boxes.second.viewport(), Qt::LeftButton, {}, {20, 20});
        QCOMPARE(boxes.log, List("2focus 2down1 2click"));
        QCOMPARE(boxes.pressed, boxes.second.viewport()->mapToGlobal(QPoint(20, 20)));
        QTest::mousePress(boxes.second.viewport(), Qt::LeftButton, {}, {20, 20});
        QTest::mouseRelease(boxes.second.viewport(), Qt::LeftButton, {}, {-20, 20});
        QCOMPARE(boxes.log.mid(3), List("2down1"));
        QSignalSpy moves(&boxes.second, &RichTextBox::MouseMove);
        QTest::mouseMove(boxes.second.viewport(), {50, 50});
        QTRY_VERIFY(!moves.isEmpty());
        boxes.log.clear();
        QTest::mouseClick(boxes.second.viewport(), Qt::RightButton, {}, {5, 5});
        QTest::mouseDClick(boxes.second.viewport(), Qt::RightButton, {}, {5, 5});
        QTest::mouseClick(boxes.second.viewport(), Qt::MiddleButton, {}, {5, 5});
        QCOMPARE(boxes.log, List("2down2 2down2 2down4")); // a double click counts as two
    }

    void refusedFocusSwallowsThePress()
    {
        Boxes boxes;
        boxes.second.SetSelStart(4);
        connect(&boxes.second, &RichTextBox::GotFocus, &boxes.window, [&] { boxes.first.setFocus(); });
        QTest::mouseClick(boxes.second.viewport(), Qt::LeftButton, {}, {1, 5});
        QVERIFY(boxes.first.hasFocus());
        QCOMPARE(boxes.log, List("2focus 1focus 2down1"));
        QCOMPARE(boxes.second.SelStart(), 4);
    }

    void passingFocusIsNoGotFocus()
    {
        Boxes boxes;
        for (auto reason : {Qt::PopupFocusReason, Qt::MenuBarFocusReason, Qt::ActiveWindowFocusReason}) {
            QFocusEvent out(QEvent::FocusOut, reason), in(QEvent::FocusIn, reason);
            QCoreApplication::sendEvent(&boxes.first, &out);
            QCoreApplication::sendEvent(&boxes.first, &in);
        }
        QCOMPARE(boxes.log, QStringList());
        boxes.second.setFocus(Qt::TabFocusReason);
        boxes.first.setFocus();
        QCOMPARE(boxes.log, List("2focus 1focus"));
    }

    // Focus set while another window was active arrives with the activation, and the box must report it as new.
    void focusThatCameWhileTheWindowSlept()
    {
        Boxes boxes;
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        boxes.second.setFocus();
        boxes.window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&boxes.window));
        QVERIFY(boxes.second.hasFocus());
        QCOMPARE(boxes.log, List("2focus"));
    }

    void menuKeyStandsForTheRightButton()
    {
        Boxes boxes;
        QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {5, 5}, {5, 5});
        QCoreApplication::sendEvent(boxes.first.viewport(), &byKey);
        QCOMPARE(boxes.log, List("1down2"));
        QVERIFY(QRect(boxes.first.mapToGlobal(QPoint()), boxes.first.size()).contains(boxes.pressed));
        QContextMenuEvent byMouse(QContextMenuEvent::Mouse, {5, 5}, {5, 5});
        QCoreApplication::sendEvent(boxes.first.viewport(), &byMouse);
        QCOMPARE(boxes.log.size(), 1);
        QVERIFY(!QApplication::activePopupWidget());
    }

    void keysWithText()
    {
        const Qt::KeyboardModifiers none, control(Qt::ControlModifier);
        const std::tuple<const char*, int, Qt::KeyboardModifiers, QString, QString> rows[] = {
            {"letter", Qt::Key_A, none, u"a"_s, u"abcd"_s},
            {"backspace", Qt::Key_Backspace, none, u"\b"_s, u"cd"_s},
            {"return", Qt::Key_Return, none, u"\r"_s, u"b\ncd"_s},
            {"tab", Qt::Key_Tab, control, u"\t"_s, u"b\tcd"_s},
            {"escape", Qt::Key_Escape, none, u"\x1b"_s, u"bcd"_s},
            {"umlaut", 0xe4, none, u"\u00e4"_s, u"b\u00e4cd"_s},
        };
        for (const auto& [name, key, modifiers, typed, text] : rows) {
            const InRow inRow(this, name);
            Boxes boxes;
            bool drop = true;
            QList<int> keys;
            connect(&boxes.first, &RichTextBox::KeyPress, this, [&](int& keyAscii) {
                keys << keyAscii;
                if (drop) keyAscii = 0;
            });
            boxes.first.SetText(u"bcd"_s);
            boxes.first.SetSelStart(key == Qt::Key_A ? 0 : 1);
            const auto press = [&] { QTest::sendKeyEvent(QTest::Click, &boxes.first, Qt::Key(key), typed, modifiers); };
            press();
            QCOMPARE(boxes.first.Text(), u"bcd"_s);
            QVERIFY(!boxes.first.Modified());
            drop = false;
            press();
            QCOMPARE(boxes.first.Text(), text);
            QCOMPARE(keys, QList<int>(2, typed.front().unicode()));
        }
    }

    void keysWithoutText()
    {
        Boxes boxes;
        int keys = 0;
        connect(&boxes.first, &RichTextBox::KeyPress, this, [&] { ++keys; });
        QTest::keyClick(&boxes.first, Qt::Key_Right);
        QCOMPARE(boxes.first.SelStart(), 1);
        QTest::sendKeyEvent(QTest::Click, &boxes.first, Qt::Key_A, u"\x01"_s, Qt::ControlModifier);
        QTest::sendKeyEvent(QTest::Click, &boxes.first, Qt::Key_C, u"\x03"_s, Qt::ControlModifier);
        QCOMPARE(QApplication::clipboard()->text(), u"first"_s);
        QCOMPARE(keys, 0);
    }

    void tabAndEscapeLeaveTheBox()
    {
        Boxes boxes;
        QTest::keyClick(&boxes.first, Qt::Key_Tab);
        QVERIFY(boxes.second.hasFocus());
        QCOMPARE(boxes.log, List("2focus"));
        QTest::keyClick(&boxes.second, Qt::Key_Tab, Qt::ShiftModifier);
        QVERIFY(boxes.first.hasFocus());
        QVERIFY(!boxes.first.Modified());
        QDialog dialog;
        RichTextBox box(&dialog);
        dialog.show();
        QTest::keyClick(&box, Qt::Key_Escape);
        QVERIFY(!dialog.isVisible());
    }

    void inputMethodCommits()
    {
        Boxes boxes;
        int last = -1;
        bool drop = true;
        connect(&boxes.first, &RichTextBox::KeyPress, this, [&](int& keyAscii) {
            last = keyAscii;
            if (drop) keyAscii = 0;
        });
        SendPreedit(boxes.first, u"\u00b4"_s);
        QCOMPARE(last, -1);
        SendPreedit(boxes.first, {}, u"\u00e9"_s);
        QCOMPARE(last, 0xe9);
        boxes.first.CommitPreedit(); // refused input does not return
        QCOMPARE(boxes.first.Text(), u"first"_s);
        drop = false;
        SendPreedit(boxes.first, {}, u"\u00e9"_s);
        QCOMPARE(boxes.first.Text(), u"\u00e9first"_s);
    }

    void preeditIsTakenIn()
    {
        Boxes boxes;
        SendPreedit(boxes.first, u"nihon"_s);
        QCOMPARE(boxes.first.Text(), u"first"_s);
        boxes.first.CommitPreedit();
        QCOMPARE(boxes.first.Text(), u"nihonfirst"_s);
        QVERIFY(boxes.first.Modified());
        boxes.first.CommitPreedit();
        SendPreedit(boxes.first, u"go"_s);
        boxes.first.SetLocked(true);
        QCOMPARE(boxes.first.Text(), u"nihongofirst"_s);
    }

    void lockedBoxReadsOnly()
    {
        Boxes boxes;
        int keys = 0;
        connect(&boxes.first, &RichTextBox::KeyPress, this, [&] { ++keys; });
        boxes.first.SetLocked(true);
        QVERIFY(boxes.first.Locked());
        QApplication::clipboard()->setText(u"paste"_s);
        QTest::keyClicks(&boxes.first, u"x"_s);
        QTest::keyClick(&boxes.first, Qt::Key_Tab, Qt::ControlModifier);
        QTest::keyClick(&boxes.first, Qt::Key_Insert, Qt::ShiftModifier);
        boxes.first.paste();
        SendPreedit(boxes.first, {}, u"y"_s);
        QVERIFY(!DropText(boxes.first, u"dropped"_s));
        QCOMPARE(boxes.first.Text(), u"first"_s);
        QCOMPARE(keys, 4); // the program still gets the key events
        QTest::mouseDClick(boxes.first.viewport(), Qt::LeftButton, {}, {8, 8});
        QCOMPARE(boxes.first.SelLength(), 5);
        QTest::keyClick(&boxes.first, Qt::Key_Insert, Qt::ControlModifier);
        QCOMPARE(QApplication::clipboard()->text(), u"first"_s);
        QVERIFY(boxes.first.hasFocus());

        boxes.first.SetSelBold(true); // the program may change the text
        QCOMPARE(boxes.first.SelBold(), true);
        boxes.first.SetLocked(false);
        QTest::keyClicks(&boxes.first, u"x"_s);
        QCOMPARE(boxes.first.Text(), u"x"_s);
    }

    void pasteIsGuarded()
    {
        Boxes boxes;
        bool refuse = true;
        int asked = 0;
        connect(&boxes.first, &RichTextBox::PasteRequested, this, [&](bool& allowed) {
            ++asked;
            allowed = !refuse;
        });
        QApplication::clipboard()->setText(u"pasted "_s);
        boxes.first.paste();
        QVERIFY(!DropText(boxes.first, u"dropped "_s));
        QCOMPARE(boxes.first.Text(), u"first"_s);
        QVERIFY(!boxes.first.Modified());
        refuse = false;
        boxes.first.paste();
        QVERIFY(DropText(boxes.first, u"dropped "_s));
        QCOMPARE(asked, 4);
        QCOMPARE(boxes.first.Text(), u"pasted firstdropped "_s);
    }

    void keysPasteUnasked()
    {
        Boxes boxes;
        bool asked = false;
        connect(&boxes.first, &RichTextBox::PasteRequested, this, [&] { asked = true; });
        QApplication::clipboard()->setText(u"a"_s);
        QTest::keyClick(&boxes.first, Qt::Key_Insert, Qt::ShiftModifier);
        QTest::keyClick(&boxes.first, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(boxes.first.Text(), u"aafirst"_s);
        QVERIFY(!asked);
        // These keys pass the same guard as any key, though they bring no character. What the program posts passes
        // another guard.
        connect(&boxes.first, &RichTextBox::KeyPress, this, [](int& keyAscii) { keyAscii = 0; });
        QTest::keyClick(&boxes.first, Qt::Key_Insert, Qt::ShiftModifier);
        QTest::keyClick(&boxes.first, Qt::Key_V, Qt::ControlModifier);
        QTest::keyClick(&boxes.first, Qt::Key_Delete);
        QCOMPARE(boxes.first.Text(), u"aafirst"_s);
        QCoreApplication::postEvent(&boxes.first, new QKeyEvent(QEvent::KeyPress, Qt::Key_Insert, Qt::ShiftModifier));
        QCoreApplication::sendPostedEvents();
        QCOMPARE(boxes.first.Text(), u"aaafirst"_s);
    }

    void pastedSizesAreInPoints()
    {
        Boxes boxes;
        auto* data = new QMimeData;
        data->setHtml(u"<p>a<span style='font-size:20px'>b</span><font size='+1'>c</font><b>d</b></p><p>e</p>"_s);
        QApplication::clipboard()->setMimeData(data);
        boxes.first.SetFontSize(10);
        boxes.first.SetSelStart(5);
        const int start = 5;
        QTest::keyClick(&boxes.first, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(boxes.first.Text(), u"firstabcd\ne"_s);
        const double sizes[] = {10, 15, 12, 10, 10, 10};
        for (int i = 0; i < 6; ++i) {
            boxes.first.SetSelStart(start + i);
            boxes.first.SetSelLength(1);
            QCOMPARE(boxes.first.SelFontSize(), sizes[i]);
        }
        boxes.first.selectAll();
        boxes.first.SetSelFontSize(30);
        const QRectF all = boxes.first.document()->firstBlock().layout()->boundingRect();
        QCOMPARE(boxes.first.SelFontSize(), 30.0);
        QCOMPARE(QTextCursor(boxes.first.document()).block().begin().fragment().charFormat().font().pointSizeF(), 30.0);
        QVERIFY(all.height() > 30);
        boxes.first.undo();
        boxes.first.undo(); // the paste is one step
        QCOMPARE(boxes.first.Text(), u"first"_s);
    }

    void textMovedToAnotherNoteIsOneStepInBoth()
    {
        Boxes boxes;
        MovedTexts first(boxes.first), second(boxes.second);
        boxes.second.insertPlainText(u"first "_s);
        boxes.first.selectAll();
        const auto endDrag = [&] {
            first.Dropped(second);
            boxes.first.textCursor().removeSelectedText();
            first.EndOfDrag(true);
        };
        endDrag();
        const auto texts = [&] { return boxes.first.Text() + u'/' + boxes.second.Text(); };
        QVERIFY(!second.Redo() && second.Undo());
        QCOMPARE(texts(), u"first/second"_s);
        QVERIFY(first.Redo());
        QCOMPARE(texts(), u"/first second"_s);
        QTest::keyClicks(&boxes.second, u"more "_s); // joins that step in the second box
        QVERIFY(!first.Undo() && second.Undo());
        QTest::keyClicks(&boxes.second, u"other "_s);
        QVERIFY(!first.Redo() && !second.Undo());
        QCOMPARE(texts(), u"first/other second"_s);
        boxes.second.moveCursor(QTextCursor::End); // otherwise it would join the last typing's step
        boxes.second.insertPlainText(u"first"_s);
        boxes.first.selectAll();
        endDrag();
        QTest::keyClicks(&boxes.first, u" new"_s);
        QVERIFY(second.Undo());
        QCOMPARE(texts(), u"first new/other second"_s); // undone in the second box only
    }

    void typedTextLooksLikeTheCaret()
    {
        const std::tuple<const char*, QString, QString> rows[] = {
            {"behind an empty line", u"ab$$cd"_s, u"AB||CD"_s},
            {"in the empty line", u"ab$$cd^x"_s, u"AB|X|CD"_s},
            {"read again", u"ab$$#cd"_s, u"AB||CD"_s},
            {"lines alone, read again", u"$$#cd"_s, u"||CD"_s},
            {"above the first line", u"ab{$^x"_s, u"X|AB"_s},
            {"taken back", u"ab$$cdZ$e"_s, u"AB|||E"_s},
            {"chosen by hand", u"ab$-$cd^x"_s, u"AB|x|cd"_s},
            {"chosen by hand and left", u"ab$-^vcd"_s, u"AB|cd"_s},
            {"emptied", u"ab$-cd<<^ve"_s, u"AB|e"_s},
            {"emptied, read again", u"ab$-cd<<#e"_s, u"AB|e"_s},
            {"back into an empty line", u"ab$$-cd<<<x"_s, u"AB|X"_s},
            {"over a selection to the left", u"a-b+c((x"_s, u"Ax"_s},
            {"over a selection to the right", u"-a+b{)x"_s, u"x"_s},
            {"a line over a selection", u"-a+b{)$x"_s, u"|x"_s},
            {"by an input method", u"~$$~"_s, u"I||I"_s},
            {"by an input method, over a selection", u"-a+b{)~"_s, u"i"_s},
        };
        for (const auto& [name, keys, wanted] : rows) {
            const InRow inRow(this, name);
            RichTextBox box;
            box.SetBlankFormat(QFont(u"Arial"_s, 16, QFont::Bold), 0xff);
            const QHash<QChar, QKeyCombination> moves{
                {u'$', Qt::Key_Return}, {u'<', Qt::Key_Backspace},        {u'^', Qt::Key_Up},
                {u'v', Qt::Key_Down},   {u'(', Qt::SHIFT | Qt::Key_Left}, {u')', Qt::SHIFT | Qt::Key_End},
                {u'{', Qt::Key_Home}};
            for (const QChar key : keys) {
                if (key == u'#') {
                    box.SetTextRTF(box.TextRTF());
                    box.moveCursor(QTextCursor::End);
                } else if (key == u'Z') {
                    box.undo();
                } else if (key == u'+' || key == u'-') {
                    box.SetSelBold(key == u'+');
                } else if (key == u'~') {
                    SendPreedit(box, u"?"_s);
                    SendPreedit(box, {}, u"i"_s);
                } else if (moves.contains(key)) {
                    QTest::keyClick(&box, moves[key].key(), moves[key].keyboardModifiers());
                } else {
                    QTest::keyClicks(&box, key);
                }
            }
            QString shown = box.Text().replace(u'\n', u'|'); // capitals: letters that still have the initial format
            for (int i = 0; i < shown.size(); ++i) {
                Select(box, i, 1);
                const bool isAsSet = box.SelBold() == true && box.SelColor() == 0xffU && box.SelFontSize() == 16.0;
                if (isAsSet) shown[i] = shown[i].toUpper();
            }
            QCOMPARE(shown, wanted);
        }
    }
};

ORRELIN_TEST(RichTextBoxInputTest)
#include "richtextboxinputtest.moc"
