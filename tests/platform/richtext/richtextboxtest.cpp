// Content and formats of the rich text box.
#include "platform/richtext/richtextbox.h"

#include "errorof.h"
#include "notes.h"
#include "platform/richtext/samplepictures.h"
#include "testmain.h"

#include <QAbstractTextDocumentLayout>
#include <QImage>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextBlock>
#include <QTextLayout>

#include <array>
#include <limits>
#include <optional>

namespace {
// One attribute of the selection, with its setter and getter.
struct Attribute
{
    const char* name;
    std::function<void(RichTextBox&, const QVariant&)> set;
    std::function<QVariant(const RichTextBox&)> get; // invalid if the selection is mixed
    QVariant first, second;
};

template <typename Value>
Attribute Make(const char* name, void (RichTextBox::*set)(Value), auto(RichTextBox::*get)() const, QVariant first,
               QVariant second)
{
    const auto read = [get](const RichTextBox& box) {
        const auto value = (box.*get)();
        return value ? QVariant::fromValue(*value) : QVariant();
    };
    const auto write = [set](RichTextBox& box, const QVariant& value) {
        (box.*set)(value.value<std::remove_cvref_t<Value>>());
    };
    return {name, write, read, first, second};
}

const std::vector<Attribute>& CharacterAttributes()
{
    using Box = RichTextBox;
    static const std::vector<Attribute> attributes{
        Make("bold", &Box::SetSelBold, &Box::SelBold, true, false),
        Make("italic", &Box::SetSelItalic, &Box::SelItalic, true, false),
        Make("underline", &Box::SetSelUnderline, &Box::SelUnderline, true, false),
        Make("strikethrough", &Box::SetSelStrikeThru, &Box::SelStrikeThru, true, false),
        Make("name", &Box::SetSelFontName, &Box::SelFontName, u"No Such Font, Wide"_s, u"Arial"_s),
        Make("size", &Box::SetSelFontSize, &Box::SelFontSize, 13.5, 8.0),
        Make("colour", &Box::SetSelColor, &Box::SelColor, 0x0080ffU, 0x000000U)};
    return attributes;
}
} // namespace

class RichTextBoxTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void selectionHasAnAttribute()
    {
        for (const Attribute& attribute : CharacterAttributes()) {
            const InRow inRow(this, attribute.name);
            RichTextBox box;
            attribute.set(box, attribute.first); // in an empty box
            QCOMPARE(attribute.get(box), attribute.first);
            QVERIFY(!box.Modified());
            QTest::mouseClick(box.viewport(), Qt::LeftButton); // leaves the caret where it is
            QTest::keyClick(&box, Qt::Key_Return);
            QTest::keyClicks(&box, u"ab"_s);
            Select(box, 1, 2);
            QCOMPARE(attribute.get(box), attribute.first);

            box.SetText(u"one\n\ntwo three"_s);
            Select(box, 0, 100);
            attribute.set(box, attribute.second);
            QCOMPARE(attribute.get(box), attribute.second); // over several paragraphs, one of them empty
            Select(box, 1, 6);                              // "ne", both ends of lines, "tw"
            attribute.set(box, attribute.first);
            QCOMPARE(attribute.get(box), attribute.first);
            Select(box, 0, 3);
            QCOMPARE(attribute.get(box), QVariant());
            Select(box, 0, 1);
            QCOMPARE(attribute.get(box), attribute.second);
            Select(box, 6, 3);
            QCOMPARE(attribute.get(box), QVariant());
            QTextCursor(box.document()).insertImage(QImage(4, 4, QImage::Format_RGB32), u"picture"_s);
            Select(box, 0, 2); // a picture has no font to differ
            QCOMPARE(attribute.get(box), attribute.second);

            const int end = box.document()->characterCount() - 1;
            box.SetSelStart(end);
            QCOMPARE(attribute.get(box), attribute.second);
            attribute.set(box, attribute.first);
            QCOMPARE(attribute.get(box), attribute.first);
            box.insertPlainText(u"!"_s);
            Select(box, end - 2, 3);
            QCOMPARE(attribute.get(box), QVariant());
            const QByteArray written = box.TextRTF();
            box.SetTextRTF(written);
            Select(box, end, 1);
            QCOMPARE(attribute.get(box), attribute.first);
        }
    }

    void alignmentBelongsToParagraphs()
    {
        RichTextBox box;
        box.SetText(u"one\ntwo\nthree"_s);
        const auto alignments = [&] {
            QList<int> all;
            for (QTextBlock block = box.document()->begin(); block.isValid(); block = block.next())
                all += int(block.blockFormat().alignment() & ~Qt::AlignAbsolute);
            return all;
        };
        const int sides[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
        for (int alignment : {1, 2, 0}) {
            Select(box, 1, 4);
            box.SetSelAlignment(alignment);
            QCOMPARE(alignments(), QList<int>({sides[alignment], sides[alignment], Qt::AlignLeft}));
            QCOMPARE(box.SelStart(), 1);
        }
        QCOMPARE(ErrorOf([&] { box.SetSelAlignment(3); }), errors::InvalidPropertyValue);
        box.SetText(u"\u05d0\u05d1"_s); // right-to-left text is not mirrored
        box.SetSelAlignment(0);
        QVERIFY(box.textCursor().blockFormat().alignment() & Qt::AlignAbsolute);
    }

    // A picture of half the box's width doubles; a wider one fills the line.
    void zoomChangesOnlyTheLayout()
    {
        const auto picture = [](int width) {
            return "\\par " + Group("pngblip", FileOf(Sample(), "png"), QSize(width, 60));
        };
        const QByteArray note = "{\\rtf1\\fs20 Choir\\tab 19:00\\par bring notes" + picture(100) + picture(300) + "}";
        RichTextBox box;
        box.resize(400, 300);
        box.show();
        box.SetTextRTF(note);
        const auto sizes = [&] {
            const QRectF text = box.document()->documentLayout()->blockBoundingRect(box.document()->begin());
            const double small = box.document()->findBlockByNumber(2).layout()->lineAt(0).height();
            return std::array{text.height(), double(box.cursorRect().height()), small};
        };
        const auto usual = sizes();
        const auto written = [&] {
            RichTextBox copy;
            copy.SetZoom(box.Zoom());
            copy.SetTextRTF(note);
            copy.SetModified(true); // else the bytes that were set come back
            return copy.TextRTF();
        };
        const QByteArray stored = written();
        for (const int percent : {200, 50}) {
            box.SetZoom(percent);
            const auto zoomed = sizes();
            for (std::size_t i = 0; i < usual.size(); ++i)
                QVERIFY(qAbs(zoomed[i] - usual[i] * percent / 100) <= 2);
            QVERIFY(box.document()->idealWidth() <= box.viewport()->width());
            QCOMPARE(written(), stored);
            QVERIFY(!box.Modified() && !box.document()->isUndoAvailable());
        }
        Select(box, 0, 1);
        QCOMPARE(box.SelFontSize(), 10.0);
        box.SetZoom(100);
        QCOMPARE(sizes(), usual);
    }

    void selectionIsClamped()
    {
        RichTextBox box;
        box.SetText(u"four\nfive"_s);
        Select(box, 5, 1000);
        QCOMPARE(box.SelLength(), 4);
        box.SetSelStart(1000);
        QCOMPARE(box.SelStart(), 9);
        QCOMPARE(box.SelLength(), 0);
        Select(box, -3, -3);
        QCOMPARE(box.SelStart(), 0);
        QCOMPARE(box.SelLength(), 0);
    }

    void formattingIsNoMove()
    {
        RichTextBox box;
        box.SetText(u"one two"_s);
        int moves = 0;
        connect(&box, &RichTextBox::SelChange, &box, [&] { ++moves; });
        QSignalSpy changes(&box, &RichTextBox::Change);
        Select(box, 2, 3);
        QCOMPARE(moves, 2); // one for the caret, one for the selection
        QVERIFY(changes.isEmpty());
        for (const Attribute& attribute : CharacterAttributes())
            attribute.set(box, attribute.first);
        box.SetSelAlignment(2);
        box.SetFontSize(20);
        QCOMPARE(moves, 2);
        box.selectAll();
        QCOMPARE(moves, 3);
        changes.clear();
        QTest::keyClicks(&box, u"x"_s);
        QVERIFY(!changes.isEmpty());
    }

    void settingForgetsWhatWasThere()
    {
        RichTextBox box;
        const std::vector<std::function<void()>> settings{
            [&] { box.SetText(u"17th"_s); }, [&] { box.SetTextRTF("17th"); }, [&] { box.SetTextRTF("{\\rtf1 17th}"); }};
        for (const auto& set : settings) {
            box.SetText(u"another day"_s);
            box.selectAll();
            box.SetSelColor(0xff);
            box.SetSelBold(true);
            QTest::keyClicks(&box, u"secret"_s);
            set();
            QVERIFY(!box.Modified());
            box.undo();
            QCOMPARE(box.Text(), u"17th"_s);
            QCOMPARE(box.SelStart(), 0);
            box.selectAll();
            QCOMPARE(box.SelColor(), 0U);
            QCOMPARE(box.SelBold(), false);
        }
    }

    void textLeavesOutPictures()
    {
        RichTextBox box;
        box.SetText(u"a\r\nb\nc\u00a0d"_s);
        QTextCursor cursor(box.document());
        cursor.setPosition(1);
        cursor.insertImage(QImage(4, 4, QImage::Format_RGB32), u"picture"_s);
        QCOMPARE(box.Text(), u"a\nb\nc d"_s);
    }

    // An installed symbol font may lack the symbols' usual code points.
    void signsArePainted()
    {
        for (const QByteArray sign :
             {"Symbol;}}\\'b7", "Symbol;}}\\'61", "ZapfDingbats;}}\\'6c", "Wingdings;}}\\'fc"}) {
            RichTextBox box;
            const QImage bare = box.grab().toImage();
            box.SetTextRTF("{\\rtf1{\\fonttbl{\\f0\\fcharset2 " + sign + "}");
            QVERIFY2(box.grab().toImage() != bare, sign);
            box.SetModified(true);
            QVERIFY2(box.TextRTF().contains(sign.left(sign.indexOf(';'))), sign);
        }
        RichTextBox box;
        box.SetTextRTF("{\\rtf1{\\fonttbl{\\f0\\fcharset2 Zapf Dingbats;}}\\f0\\'33\\'6c\\'b6\\'d5}");
        QCOMPARE(box.Text(), u"✓●❶→"_s);
        QCOMPARE(box.SelFontName(), u"Zapf Dingbats"_s);
    }

    void emptyBoxTakesTheDefaultFont()
    {
        for (const QByteArray& content : {QByteArray(), QByteArray("  "), QByteArray("{\\rtf1\\b\\fs60\\cf1 \\par}")}) {
            RichTextBox box;
            box.SetTextRTF(content);
            const int caret = box.SelStart();
            box.SetFontName(u"Absent Hand"_s);
            box.SetFontSize(8.5);
            box.SetSelColor(0x800000);
            QVERIFY(!box.Modified());
            QCOMPARE(box.SelStart(), caret);
            QCOMPARE(box.TextRTF(), content);
            QCOMPARE(box.Font().family(), u"Absent Hand"_s);

            QTest::keyClicks(&box, u"x"_s);
            Select(box, 0, 1);
            QCOMPARE(box.SelFontName(), u"Absent Hand"_s);
            QCOMPARE(box.SelFontSize(), 8.5);
            QCOMPARE(box.SelColor(), 0x800000U);
        }
    }

    void emptiedBoxLooksLikeTheDefaultFont()
    {
        RichTextBox box;
        box.SetBlankFormat(QFont(u"Arial"_s, 9, QFont::Bold), 0x0000ff);
        box.SetSelItalic(true); // applies to this text only
        QTest::keyClicks(&box, u"abc"_s);
        box.selectAll();
        box.SetSelColor(0x00ff00);
        box.SetSelBold(false);
        box.SetSelFontSize(40);
        QTest::keyClick(&box, Qt::Key_Delete);
        QVERIFY(box.Text().isEmpty());
        QTest::keyClicks(&box, u"x"_s);
        Select(box, 0, 1);
        QCOMPARE(box.SelColor(), 0x0000ffU);
        QCOMPARE(box.SelBold(), true);
        QCOMPARE(box.SelItalic(), false);
        QCOMPARE(box.SelFontSize(), box.Font().pointSizeF());
    }

    void fontOfABoxWithText()
    {
        RichTextBox box;
        box.SetTextRTF("{\\rtf1 Choir \\b 19:00}");
        Select(box, 3, 4);
        box.SetFontName(u"Courier Quite"_s);
        QVERIFY(box.Modified());
        box.SetFontSize(17);
        QCOMPARE(box.SelStart(), 3);
        QCOMPARE(box.SelLength(), 4);
        box.selectAll();
        QCOMPARE(box.SelFontName(), u"Courier Quite"_s);
        QCOMPARE(box.SelFontSize(), 17.0);
        QCOMPARE(box.SelBold(), std::nullopt);
        QCOMPARE(box.Text(), u"Choir 19:00"_s);
    }

    void badSizesAreRefused()
    {
        RichTextBox box;
        box.SetText(u"x"_s);
        for (double size : {0.0, -8.0, 1e9, std::numeric_limits<double>::quiet_NaN()}) {
            QCOMPARE(ErrorOf([&] { box.SetFontSize(size); }), errors::InvalidPropertyValue);
            QCOMPARE(ErrorOf([&] { box.SetSelFontSize(size); }), errors::InvalidPropertyValue);
        }
        QVERIFY(!box.Modified());
    }

    void desktopFontStaysOutside()
    {
        QWidget window;
        RichTextBox box(&window);
        box.SetFontName(u"Arial"_s);
        box.SetFontSize(9);
        window.setFont(QFont(u"Courier"_s, 30));
        QCOMPARE(box.Font().family(), u"Arial"_s);
        QCOMPARE(box.Font().pointSizeF(), 9.0);
    }

    void textBreaksAtTheRightMargin()
    {
        RichTextBox box;
        box.resize(300, 200);
        box.show();
        box.SetText(u"word "_s.repeated(20));
        const auto width = [&] { return box.document()->firstBlock().layout()->boundingRect().width(); };
        box.SetRightMargin(100);
        QVERIFY(width() <= 100);
        for (int margin : {0, 300, 5000}) {
            box.SetRightMargin(margin);
            QVERIFY(width() > 200);
            QVERIFY(width() <= box.viewport()->width());
        }
        box.resize(150, 200); // narrower than the margin: nothing may lie beyond the edge
        QVERIFY(width() <= 150);
    }

    void noteLiesOnItsPaper()
    {
        QWidget window;
        QPalette dark;
        dark.setColor(QPalette::Window, Qt::yellow);
        dark.setColor(QPalette::Base, Qt::black);
        dark.setColor(QPalette::Text, Qt::white);
        window.setPalette(dark);
        RichTextBox box(&window);
        window.resize(120, 80);
        box.setGeometry(0, 0, 120, 80);
        box.SetText(u"IIIII"_s);
        window.show();
        // Without a scroll bar its place is part of the paper.
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, QPoint(117, 8));
        QCOMPARE(box.SelStart(), 5);
        const QImage picture = window.grab().toImage();
        for (int x : {110, 115, 118})
            QCOMPARE(picture.pixelColor(x, 70), QColor(Qt::yellow));
        bool hasInk = false;
        for (int x = 0; x < 40; ++x)
            hasInk |= picture.pixelColor(x, 8).red() < 100;
        QVERIFY(hasInk);

        box.SetText(u"line\n"_s.repeated(50));
        QVERIFY(box.verticalScrollBar()->width() < 10);
        QTest::mouseClick(box.verticalScrollBar(), Qt::LeftButton, {}, {3, 70});
        QVERIFY(box.verticalScrollBar()->value() > 0);

        const auto inkAtTheEdge = [&](int scrolled) {
            box.verticalScrollBar()->setValue(scrolled);
            const QImage edge = window.grab(QRect(0, 0, 40, 3)).toImage();
            QImage bare = edge;
            bare.fill(Qt::yellow);
            return edge != bare;
        };
        QVERIFY(!inkAtTheEdge(6)); // half a line is not painted
        box.SetFontSize(60);
        QVERIFY(inkAtTheEdge(40)); // unless it fills the box
    }
};

ORRELIN_TEST(RichTextBoxTest)
#include "richtextboxtest.moc"
