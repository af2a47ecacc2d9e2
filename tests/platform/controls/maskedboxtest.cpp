// The mask box under keys, mouse, clipboard and input methods.
#include "platform/controls/maskedbox.h"

#include "testmain.h"

#include <QClipboard>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>

namespace {
const QString g_date = u"##/##/####"_s;
const QString g_full = u"07/04/1999"_s;

// Presses keys given as words: a character or the name of a key.
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

    void keys()
    {
        const QString none;
        // keys: typed from the start of the box
        const std::tuple<const char*, QString, QString, QString, int> rows[] = {
            {"digits alone", none, u"07041999"_s, g_full, 10},
            {"as written", none, u"07/04/1999"_s, g_full, 10},
            {"without zeros", none, u"7/4/1999"_s, g_full, 10},
            {"by dots", none, u"7.4.1999"_s, g_full, 10},
            {"letters", none, u"a0x7,;4"_s, u"07/4_/____"_s, 4},
            {"partial", none, u"7"_s, u"7_/__/____"_s, 1},
            {"other number over a full one", g_full, u"1 2 / 9 /"_s, u"12/09/1999"_s, 6},
            {"one digit over a full number", g_full, u"9 /"_s, u"09/04/1999"_s, 3},
            {"separator skips", g_full, u"/ /"_s, g_full, 6},
            {"separator after a move keeps", g_full, u"Right /"_s, g_full, 3},
            {"delete over separators", g_full, u"Del Del Del Del Del"_s, u"__/__/_999"_s, 7},
            {"backspace over separators", g_full, u"End Back Back Back Back Back"_s, u"07/0_/____"_s, 4},
            {"end of a part", u"07/04/1___"_s, u"End"_s, u"07/04/1___"_s, 7},
            {"end of nothing", none, u"End 1"_s, u"1_/__/____"_s, 1},
            {"selection typed over", g_full, u"All 1"_s, u"1_/__/____"_s, 1},
            {"undo", g_full, u"All 1 Undo"_s, g_full, 10},
            {"cut and paste", g_full, u"All Cut Paste"_s, g_full, 10},
        };
        for (const auto& [name, before, keys, after, caret] : rows) {
            const InRow inRow(this, name);
            m_box->SetText(before);
            m_box->setCursorPosition(0);
            Press(*m_box, keys);
            QCOMPARE(m_box->Text(), after);
            QCOMPARE(m_box->cursorPosition(), caret);
        }
    }

    void pasting()
    {
        const QString yearFirst = u"####/##/##"_s, two = u"##"_s;
        const std::tuple<const char*, QString, QString, int, QString, QString> rows[] = {
            {"short date", g_date, u""_s, 0, u"7/4/1999"_s, g_full},
            {"digits alone", g_date, u"12/31/2001"_s, 10, u"07041999"_s, g_full},
            {"other separators", g_date, u""_s, 0, u"7-4-1999"_s, g_full},
            {"year first", yearFirst, u""_s, 0, u"1999/7/4"_s, u"1999/07/04"_s},
            {"other order", g_date, g_full, 0, u"1999/7/4"_s, g_full},
            {"words", g_date, g_full, 0, u"July 4"_s, g_full},
            {"date and time", g_date, g_full, 0, u"7/4/1999 10:15"_s, g_full},
            {"the year alone", g_date, u"07/04/____"_s, 6, u"1999"_s, g_full},
            {"month and year", g_date, u"31/12/2001"_s, 4, u"7/1999"_s, u"31/07/1999"_s},
            {"half filled box", g_date, g_full, 0, u"08/__/____"_s, u"08/__/____"_s},
            {"minute", two, u""_s, 0, u"5"_s, u"5_"_s},
            {"wide digits", two, u""_s, 0, QString::fromUtf8("０７"), u"07"_s},
            {"no mask", u""_s, u"x"_s, 1, u"any; text"_s, u"xany; text"_s},
        };
        for (const auto& [name, mask, before, caret, clipboard, after] : rows) {
            const InRow inRow(this, name);
            m_box->SetMask(mask);
            m_box->SetText(before);
            QGuiApplication::clipboard()->setText(clipboard);
            m_box->setCursorPosition(caret);
            Press(*m_box, u"Paste"_s);
            QCOMPARE(m_box->Text(), after);

            m_box->SetText(before);
            m_box->setCursorPosition(caret);
            const std::unique_ptr<QMenu> menu(m_box->createStandardContextMenu());
            for (QAction* action : menu->actions())
                if (action->text().contains(u"Paste"_s)) action->trigger();
            QCOMPARE(m_box->Text(), after);

            if (mask.isEmpty() || caret != 0) continue; // a drop moves the caret to the mouse
            m_box->SetText(before);
            Drop(clipboard);
            QCOMPARE(m_box->Text(), after);
        }
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
