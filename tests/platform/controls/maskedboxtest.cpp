// The mask box under keys, mouse, clipboard and input methods.
#include "platform/controls/maskedbox.h"

#include "testmain.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QTest>

namespace {
const QString g_date = u"##/##/####"_s;
const QString g_full = u"07/04/1999"_s;

// Keys as a person presses them, one word a key: a character, or the name of a key.
void Press(MaskEdBox& box, const QString& keys)
{
    static const QHash<QString, QKeySequence> named = {
        {u"Back"_s, Qt::Key_Backspace},   {u"Del"_s, Qt::Key_Delete},          {u"Home"_s, Qt::Key_Home},
        {u"End"_s, Qt::Key_End},          {u"Left"_s, Qt::Key_Left},           {u"Right"_s, Qt::Key_Right},
        {u"Undo"_s, QKeySequence::Undo},  {u"All"_s, QKeySequence::SelectAll}, {u"Cut"_s, QKeySequence::Cut},
        {u"Paste"_s, QKeySequence::Paste}};
    for (const QString& key : keys.split(u' ', Qt::SkipEmptyParts)) {
        if (named.contains(key)) {
            QTest::keySequence(&box, named[key]);
        } else {
            QTest::keyClicks(&box, key);
        }
    }
}
} // namespace

class MaskedBoxTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<MaskEdBox> m_box;

    void Drop(const QString& text)
    {
        QMimeData dragged;
        dragged.setText(text);
        QDragEnterEvent enter(QPoint(2, 2), Qt::CopyAction, &dragged, Qt::LeftButton, {});
        QCoreApplication::sendEvent(m_box.get(), &enter);
        QDropEvent drop(QPointF(2, 2), Qt::CopyAction, &dragged, Qt::LeftButton, {});
        QCoreApplication::sendEvent(m_box.get(), &drop);
    }

private Q_SLOTS:
    void init()
    {
        m_box = std::make_unique<MaskEdBox>();
        m_box->SetMask(g_date);
        m_box->show();
        m_box->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_box.get()));
        m_box->setFocus();
    }

    void keys_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("keys"); // from the first place
        QTest::addColumn<QString>("after");
        QTest::addColumn<int>("caret");
        const QString none;
        QTest::newRow("digits alone") << none << "07041999" << g_full << 10;
        QTest::newRow("as written") << none << "07/04/1999" << g_full << 10;
        QTest::newRow("without zeros") << none << "7/4/1999" << g_full << 10;
        QTest::newRow("by dots") << none << "7.4.1999" << g_full << 10;
        QTest::newRow("letters") << none << "a0x7,;4"
                                 << "07/4_/____" << 4;
        QTest::newRow("partial") << none << u"7"_s << u"7_/__/____"_s << 1;
        QTest::newRow("other number over a full one") << g_full << u"1 2 / 9 /"_s << u"12/09/1999"_s << 6;
        QTest::newRow("one digit over a full number") << g_full << u"9 /"_s << u"09/04/1999"_s << 3;
        QTest::newRow("separator skips") << g_full << "/ /" << g_full << 6;
        QTest::newRow("separator after a move keeps") << g_full << "Right /" << g_full << 3;
        QTest::newRow("delete over separators") << g_full << u"Del Del Del Del Del"_s << u"__/__/_999"_s << 7;
        QTest::newRow("backspace over separators")
            << g_full << u"End Back Back Back Back Back"_s << u"07/0_/____"_s << 4;
        QTest::newRow("end of a part") << u"07/04/1___"_s << u"End"_s << u"07/04/1___"_s << 7;
        QTest::newRow("end of nothing") << none << u"End 1"_s << u"1_/__/____"_s << 1;
        QTest::newRow("selection typed over") << g_full << u"All 1"_s << u"1_/__/____"_s << 1;
        QTest::newRow("undo") << g_full << "All 1 Undo" << g_full << 10;
        QTest::newRow("cut and paste") << g_full << "All Cut Paste" << g_full << 10;
    }

    void keys()
    {
        QFETCH(QString, before);
        QFETCH(QString, keys);
        m_box->SetText(before);
        m_box->setCursorPosition(0);
        Press(*m_box, keys);
        QTEST(m_box->Text(), "after");
        QTEST(m_box->cursorPosition(), "caret");
    }

    void pasting_data()
    {
        QTest::addColumn<QString>("mask");
        QTest::addColumn<QString>("before");
        QTest::addColumn<int>("caret");
        QTest::addColumn<QString>("clipboard");
        QTest::addColumn<QString>("after");
        const QString yearFirst = u"####/##/##"_s, two = u"##"_s;
        QTest::newRow("short date") << g_date << "" << 0 << "7/4/1999" << g_full;
        QTest::newRow("digits alone") << g_date << "12/31/2001" << 10 << "07041999" << g_full;
        QTest::newRow("other separators") << g_date << "" << 0 << "7-4-1999" << g_full;
        QTest::newRow("year first") << yearFirst << u""_s << 0 << u"1999/7/4"_s << u"1999/07/04"_s;
        QTest::newRow("other order") << g_date << g_full << 0 << "1999/7/4" << g_full;
        QTest::newRow("words") << g_date << g_full << 0 << "July 4" << g_full;
        QTest::newRow("date and time") << g_date << g_full << 0 << "7/4/1999 10:15" << g_full;
        QTest::newRow("the year alone") << g_date << "07/04/____" << 6 << "1999" << g_full;
        QTest::newRow("month and year") << g_date << u"31/12/2001"_s << 4 << u"7/1999"_s << u"31/07/1999"_s;
        QTest::newRow("half filled box") << g_date << g_full << 0 << u"08/__/____"_s << u"08/__/____"_s;
        QTest::newRow("minute") << two << u""_s << 0 << u"5"_s << u"5_"_s;
        QTest::newRow("wide digits") << two << "" << 0 << QString::fromUtf8("０７") << "07";
        QTest::newRow("no mask") << u""_s << u"x"_s << 1 << "any; text"
                                 << "xany; text";
    }

    void pasting()
    {
        QFETCH(QString, mask);
        QFETCH(QString, before);
        QFETCH(int, caret);
        QFETCH(QString, clipboard);
        m_box->SetMask(mask);
        m_box->SetText(before);
        QGuiApplication::clipboard()->setText(clipboard);
        m_box->setCursorPosition(caret);
        Press(*m_box, u"Paste"_s);
        QTEST(m_box->Text(), "after");

        m_box->SetText(before);
        m_box->setCursorPosition(caret);
        const std::unique_ptr<QMenu> menu(m_box->createStandardContextMenu());
        for (QAction* action : menu->actions())
            if (action->text().contains(u"Paste"_s)) action->trigger();
        QTEST(m_box->Text(), "after");

        if (mask.isEmpty() || caret != 0) return; // a drop moves the caret to where the mouse is
        m_box->SetText(before);
        Drop(clipboard);
        QTEST(m_box->Text(), "after");
    }

    void pressesIntoTheEmptyBox()
    {
        QTest::mouseClick(m_box.get(), Qt::LeftButton, {}, QPoint(m_box->width() - 4, m_box->height() / 2));
        QCOMPARE(m_box->cursorPosition(), 0);
        Press(*m_box, u"07"_s);
        QTest::mouseClick(m_box.get(), Qt::LeftButton, {}, QPoint(m_box->width() - 4, m_box->height() / 2));
        QCOMPARE(m_box->cursorPosition(), 3);
    }

    void inputMethod()
    {
        QInputMethodEvent composing(u"7"_s, {});
        QCoreApplication::sendEvent(m_box.get(), &composing);
        QInputMethodEvent commit;
        commit.setCommitString(QString::fromUtf8("٧é/４"));
        QCoreApplication::sendEvent(m_box.get(), &commit);
        QCOMPARE(m_box->Text(), u"07/4_/____"_s);
    }

    void masksComeAndGo()
    {
        m_box->SetText(g_full);
        m_box->SetMask({});
        m_box->SetText({});
        QCOMPARE(m_box->Text(), QString());
        m_box->SetMask(u"##"_s);
        Press(*m_box, u"1 /"_s);
        QCOMPARE(m_box->Text(), u"01"_s);
        for (const QString& text : {u"12"_s, u"5_"_s, u"__"_s}) {
            m_box->SetText(text);
            QCOMPARE(m_box->Text(), text);
            QCOMPARE(m_box->IsComplete(), text == u"12");
        }
        m_box->SetText(u"12:30"_s);
        m_box->setReadOnly(true);
        Press(*m_box, u"1 Paste"_s);
        QCOMPARE(m_box->Text(), u"__"_s);
    }
};

ORRELIN_TEST(MaskedBoxTest)
#include "maskedboxtest.moc"
