// The layout cost grows with a note's length: which notes get the cheap layout, and that no letter is lost by it.
#include "notes.h"
#include "testmain.h"

#include <QFont>
#include <QMimeData>
#include <QTextBlock>

namespace {
constexpr auto Usual = QTextOption::WrapAtWordBoundaryOrAnywhere, Anywhere = QTextOption::WrapAnywhere;
const QString Hex = u"0123456789abcdef"_s.repeated(300); // a word of 4800 letters

QByteArray RunsOf(const QByteArray& text, int count)
{
    return "{\\rtf1 " + QByteArray("\\b " + text + "\\b0 " + text).repeated(count / 2) + "\\par}";
}

bool IsKerned(const RichTextBox& box)
{
    return box.Font().styleStrategy() == QFont::PreferDefault;
}

bool IsLaidOut(const QTextBlock& block)
{
    const int lines = block.layout()->lineCount();
    if (lines == 0) return false;
    const QTextLine last = block.layout()->lineAt(lines - 1);
    return last.textStart() + last.textLength() == block.length() - 1;
}
} // namespace

class LayoutCostTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wrapFollowsTheWords()
    {
        const QString digits = u"0123456789"_s;
        const std::tuple<const char*, QByteArray, QTextOption::WrapMode, bool> rows[] = {
            {"one word", Hex.toUtf8(), Anywhere, false},
            {"a word behind words", QByteArray("note " + Hex.toUtf8() + " note"), Anywhere, false},
            {"many words of some hundred letters", QString(digits.repeated(30) + u' ').repeated(200).toUtf8(), Anywhere,
             false},
            {"a word in short runs", RunsOf("0123", 2000), Anywhere, false},
            {"blanks that do not break", QString(digits + QChar(QChar::Nbsp)).repeated(600).toUtf8(), Anywhere, false},
            {"words in short runs", RunsOf("word ", 5000), Usual, false},
            {"short runs in lines", RunsOf("word\\par ", 5000), Usual, true},
            {"words", QByteArray("note ").repeated(20000), Usual, true},
            {"lines", QByteArray(digits.toUtf8() + '\n').repeated(5000), Usual, true},
            {"a long address", QByteArray("folder/").repeated(2000), Usual, true},
            {"a script without blanks", u"\u6f22\u5b57"_s.repeated(5000).toUtf8(), Usual, true},
            {"a word of usual length", Hex.left(3000).toUtf8(), Usual, true},
        };
        for (const auto& [name, note, wrap, isKerned] : rows) {
            const InRow inRow(this, name);
            RichTextBox box;
            box.show();
            box.SetTextRTF(note);
            QCOMPARE(box.wordWrapMode(), wrap);
            QCOMPARE(IsKerned(box), isKerned);
            QVERIFY(IsLaidOut(box.document()->firstBlock()));
            QCOMPARE(box.TextRTF(), note);
            box.SetTextRTF("another day");
            QCOMPARE(box.wordWrapMode(), Usual);
            QVERIFY(IsKerned(box));
        }
    }

    void editsAreFollowed()
    {
        RichTextBox box;
        box.resize(165, 110);
        box.show();
        box.SetText(u"first\nlast"_s);
        QMimeData hex;
        hex.setText(Hex);
        Drop(box, hex);
        const auto isBounded = [&](bool bounded) {
            bool isWhole = true;
            for (QTextBlock block = box.document()->begin(); block.isValid(); block = block.next())
                isWhole = isWhole && IsLaidOut(block);
            return isWhole && (box.wordWrapMode() == Anywhere) == bounded && IsKerned(box) != bounded;
        };
        QTRY_VERIFY(isBounded(true));
        QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
        QTRY_VERIFY(isBounded(false));
        QCOMPARE(box.Text(), u"first\nlast"_s);
        QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QTRY_VERIFY(isBounded(true));
        box.SetSelStart(int(box.Text().indexOf(Hex)) + 2400);
        QTest::keyClick(&box, Qt::Key_Space); // makes two words, both short enough
        QTRY_VERIFY(isBounded(false));
        QTest::keyClick(&box, Qt::Key_Backspace);
        QTRY_VERIFY(isBounded(true));
        QVERIFY(PlainText(box.TextRTF()).contains(Hex));
        box.SetSelStart(0);
        box.SetSelLength(box.document()->characterCount() - 1);
        QTest::keyClick(&box, Qt::Key_X);
        QTRY_VERIFY(isBounded(false));
    }

    // Each step of a change looks at all lines of its paragraph, so a paragraph has no lines during many steps.
    void manyStepsFindNoLines()
    {
        RichTextBox box;
        box.resize(165, 110);
        box.show();
        QMimeData runs;
        runs.setData(u"text/rtf"_s, RunsOf("0123", 5000));
        Drop(box, runs);
        QTest::keyClick(&box, Qt::Key_End, Qt::ControlModifier);
        QTest::keyClick(&box, Qt::Key_Return);
        QTest::keyClick(&box, Qt::Key_X);
        QList<int> lines;
        connect(box.document(), &QTextDocument::contentsChange, &box,
                [&] { lines += box.document()->firstBlock().layout()->lineCount(); });
        const auto undo = [&] { QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier); };
        undo(); // of the change in the last line
        QVERIFY(IsLaidOut(box.document()->firstBlock()));
        while (!box.IsEmpty())
            undo();
        QCOMPARE(lines, QList<int>(lines.size(), 0));
    }
};

ORRELIN_TEST(LayoutCostTest)
#include "layoutcosttest.moc"
