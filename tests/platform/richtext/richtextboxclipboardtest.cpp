// The formats that the rich text box copies, pastes and takes from drags.
#include "notes.h"
#include "platform/richtext/notepicture.h"
#include "platform/richtext/rtfwriter.h"
#include "platform/richtext/samplepictures.h"
#include "support.h"
#include "testmain.h"

#include <QClipboard>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QUrl>

namespace {

const QByteArray g_png = FileOf(Sample(), "png"), g_jpeg = FileOf(Sample(), "jpeg");
const QByteArray g_rtf = "{\\rtf1{\\fonttbl{\\f0 Arial;}}{\\colortbl;\\red255\\green0\\blue0;}\\f0\\fs24 ";

struct Box : RichTextBox
{
    Box()
    {
        resize(300, 200);
        show();
    }

    void Set(const QByteArray& body) { SetTextRTF(g_rtf + body + '}'); }

    void Select(int begin, int end) { setTextCursor(Selection(*document(), begin, end)); }

    // "#" stands for a picture, "|" for the end of a paragraph.
    QString Shown() const
    {
        QString text = document()->toRawText();
        return text.replace(QChar::ObjectReplacementCharacter, u'#').replace(QChar::ParagraphSeparator, u'|');
    }

    using RichTextBox::insertFromMimeData;
};

} // namespace

class RichTextBoxClipboardTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void OffersWhatOthersRead()
    {
        Box box;
        box.Set("a{\\b bold}" + Group("jpegblip", g_jpeg) + Group("emfblip", "x") + "\\par c");
        box.Select(1, 9);
        box.copy();
        const QMimeData& data = *QApplication::clipboard()->mimeData();
        for (const char* format : {"text/rtf", "application/rtf"})
            QCOMPARE(data.data(QString::fromLatin1(format)), WriteRtf(box.textCursor()));
        QCOMPARE(data.text(), u"bold\nc"_s);
        QVERIFY(!data.hasImage());
        QVERIFY(data.html().contains(u"<img src=\"data:image/jpeg;base64,"_s + QString::fromLatin1(g_jpeg.toBase64())));
        QCOMPARE(data.html().count(u"<img"_s), 1);
        box.SetText(u"gone"_s);
        QCOMPARE(data.text(), u"bold\nc"_s); // unchanged since the copy
    }

    void OnePictureIsAnImageToo()
    {
        Box box;
        box.Set("a" + Group("pngblip", g_png) + "b");
        box.Select(1, 2);
        box.cut();
        QCOMPARE(box.Shown(), u"ab"_s);
        QCOMPARE(QApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32), Sample());
    }

    void ComesBackTheSame()
    {
        const std::pair<const char*, QByteArray> rows[] = {
            {"formats", "a\\b b\\i\\cf1 c\\plain\\par\\qc\\li300 d\\tab e\\par\\pard f"},
            {"pictures", "a" + Group("pngblip", g_png) + "\\par" + Group("macpict", "x") +
                             "{\\object{\\*\\objdata 01}{\\result" + Group("jpegblip", g_jpeg) + "}}"},
            {"one picture", Group("pngblip", g_png)},
            {"empty paragraphs", "\\par\\par a\\par\\par"},
        };
        for (const auto& [name, body] : rows) {
            const InRow inRow(this, name);
            Box from, to;
            from.Set(body);
            to.Set("before {\\b there}");
            const QByteArray before = WriteRtf(*to.document());
            from.selectAll();
            from.copy();
            to.selectAll();
            to.paste();
            QCOMPARE(to.TextRTF(), WriteRtf(*from.document()));
            to.undo();
            QCOMPARE(WriteRtf(*to.document()), before);
            QVERIFY(!to.document()->isUndoAvailable());
            to.redo();
            QCOMPARE(to.TextRTF(), WriteRtf(*from.document()));
        }
    }

    // What is shown is between "<" and ">".
    void TakesTheBestForm()
    {
        using Offers = QHash<QString, QByteArray>;
        const auto row = [this](const char* name, const Offers& offers, const QString& shown,
                                const QString& bold = {}) {
            if (QTest::currentTestFailed()) return;
            const InRow inRow(this, name);
            auto* data = new QMimeData;
            for (auto offer = offers.cbegin(); offer != offers.cend(); ++offer)
                data->setData(offer.key(), offer.value());
            QApplication::clipboard()->setMimeData(data);
            Box box;
            box.Set("<>");
            box.Select(1, 1);
            const QByteArray before = WriteRtf(*box.document());
            box.paste();
            QCOMPARE(box.Shown(), shown);
            QCOMPARE(box.textCursor().position(), box.Shown().size() - 1);
            QString found;
            for (int i = 0; i < box.Shown().size(); ++i)
                if (Selection(*box.document(), i, i + 1).charFormat().fontWeight() > QFont::Normal)
                    found += box.Shown()[i];
            QCOMPARE(found.remove(u'|'), bold);
            if (box.document()->isUndoAvailable()) box.undo();
            QCOMPARE(WriteRtf(*box.document()), before);
        };
        const QString rtf = u"text/rtf"_s, html = u"text/html"_s, text = u"text/plain"_s, png = u"image/png"_s;
        const QByteArray word = g_rtf + "{\\b r}tf\\par}", page = "<p>a <b>page</b></p>",
                         tag = "<img src='http://127.0.0.1:9/'>";
        row("all forms", {{rtf, word}, {html, page}, {png, g_png}, {text, "t"}}, u"<rtf>"_s, u"r"_s);
        row("rich text of another name", {{u"Rich Text Format"_s, word}, {text, "t"}}, u"<rtf>"_s, u"r"_s);
        row("page", {{html, page}, {png, g_png}, {text, "t"}}, u"<a page>"_s, u"page"_s);
        row("image", {{png, g_png}, {text, "t"}}, u"<#>"_s);
        row("JPEG", {{u"image/jpeg"_s, g_jpeg}}, u"<#>"_s);
        row("image of a browser", {{html, "<meta charset='utf-8'>" + tag}, {png, g_png}}, u"<#>"_s);
        row("image that is not there", {{html, tag}, {text, "t"}}, u"<t>"_s);
        row("text", {{text, "two\r\nlines\xe2\x82\xac\xff"}}, u"<two|lines€\uFFFD>"_s);
        row("rich text that is none", {{rtf, "rtf"}, {text, "t"}}, u"<t>"_s);
        row("rich text without content", {{rtf, "{\\rtf1\\b}"}, {html, page}}, u"<a page>"_s, u"page"_s);
        row("rich text cut off", {{rtf, g_rtf + "{\\b r}t{\\pict\\pngblip 89"}}, u"<rt#>"_s, u"r"_s);
        row("rich text that lies", {{rtf, g_rtf + "{\\b r}t{\\bin99999999 x}"}}, u"<rt>"_s, u"r"_s);
        row("damaged image", {{png, g_png.first(40)}, {text, "t"}}, u"<t>"_s);
        const auto tooLarge = [&](const char* name, const QString& format, const QByteArray& data) {
            row(name, {{format, data}, {text, "t"}}, u"<t>"_s);
        };
        tooLarge("page too deep", html, QByteArray("<b>").repeated(100'000) + "x");
        tooLarge("page too long", html, QByteArray("<p>x<br>").repeated(2'000'000));
        tooLarge("page of text that names data", html, "data:" + QByteArray("x").repeated(2'000'000));
        tooLarge("page of long words for an image", html,
                 "<img alt=' src=data:" + QByteArray("x").repeated(2'000'000) + "'>");
        tooLarge("page of a long list", html, "<ul>" + QByteArray("<li>x</li>").repeated(50'000));
        tooLarge("page of many images", html, QByteArray("<img src='data:x'>").repeated(50'000));
        tooLarge("rich text too long", rtf, g_rtf + QByteArray("{\\b x}").repeated(2'000'000) + '}');
        row("page of a large image",
            {{html, "<img alt='\"' Src = \"data:image/png;base64," + g_png.toBase64() +
                        QByteArray(" ").repeated(2'000'000) + "\">"},
             {text, "t"}},
            u"<#>"_s);
        row("text too long", {{text, QByteArray("x").repeated(9 << 20)}}, u"<>"_s);
        row("nothing", {{u"x-other/kind"_s, "x"}}, u"<>"_s);
        row("word processor's page",
            {{html,
              "<!DOCTYPE html>\n<html>\n<head>\n\t<meta http-equiv=\"content-type\" content=\"text/html; "
              "charset=utf-8\"/>\n"
              "\t<title></title>\n\t<style type=\"text/css\">\n\t\t@page { size: 8.27in 11.69in; margin: 0.79in }\n"
              "\t\tp { line-height: 115%; margin-bottom: 0.1in }\n\t</style>\n</head>\n<body lang=\"en-US\" "
              "dir=\"ltr\">"
              "<p style=\"line-height: 100%\"><font face=\"Arial, sans-serif\"><b>Mon</b></font>day<br/>\n"
              "<img src=\"data:image/png;base64," +
                  g_png.toBase64() +
                  "\" width=\"40\" height=\"20\" border=\"0\"/>"
                  "</p>\n</body>\n</html>"},
             {text, "Monday"}},
            u"<Monday\u2028#>"_s, u"Mon"_s);
        row("browser's page",
            {{html,
              "<meta http-equiv=\"content-type\" content=\"text/html; charset=utf-8\"><h2 style=\"color: rgb(1, 2, "
              "3);\">"
              "Head</h2><ul><li>one</li><li>two</li></ul><table><tbody><tr><td>a</td><td>b</td></tr><tr><td>c</td>"
              "<td>d</td></tr></tbody></table><a href=\"http://127.0.0.1:9/\">link</a><script>no</script>"},
             {text, "t"}},
            u"<Head|\u2022\tone|\u2022\ttwo|a\tb|c\td|link>"_s, u"Head"_s);
    }

    void PageStandsAsItDid()
    {
        QMimeData page;
        page.setHtml(u"<ul><li><p>one</p><ul><li><p>two</p></li></ul></li></ul><table><thead><tr><th>Name of all</th>"
                     "<th>Sum</th></tr></thead><tr><td>a</td><td style='color:#00ff00'>5</td></tr></table><p>x</p>"_s);
        Box box;
        box.SetBlankFormat(QFont(u"Courier"_s, 9), 0xff);
        box.insertFromMimeData(&page);
        QCOMPARE(box.Shown(), u"\u2022\tone|\u2022\ttwo|Name of all\tSum|a\t5|x"_s);
        const auto left = [&](int position) {
            return box.cursorRect(Selection(*box.document(), position, position)).left();
        };
        const int sum = 24;
        QCOMPARE(left(6) - left(0), left(8) - left(2)); // one list level indents by one bullet's width
        QVERIFY(left(6) > left(0));
        QCOMPARE(left(sum + 6), left(sum));
        QVERIFY(left(sum) > left(sum - 2));
        const auto line = [&](int number) {
            return box.document()->findBlockByNumber(number).layout()->position().y();
        };
        QCOMPARE(line(1) - line(0), line(2) - line(1));
        for (const auto& [position, color] : {std::pair(2, 0xffU), {12, 0xffU}, {sum + 6, 0xff00U}}) {
            box.Select(position, position + 1);
            QCOMPARE(box.SelColor(), color);
            QCOMPARE(box.SelFontName(), u"Courier"_s);
        }
    }

    void SaysWhatItCannotTake()
    {
        QApplication::clipboard()->setText(QString(9 << 20, u'x'));
        Box box;
        SeenBox seen;
        AnswerNextBox(msgbox::Ok, &seen);
        box.paste();
        QTRY_VERIFY(seen.Text.contains(u"too large"));
        auto* other = new QMimeData;
        other->setData(u"x-other/kind"_s, "x");
        QApplication::clipboard()->setMimeData(other);
        box.paste(); // an unknown format pastes nothing
        QTest::qWait(20);
        QVERIFY(!QApplication::activeModalWidget());
    }

    void PhotographsFitTheBox()
    {
        QApplication::clipboard()->setImage(Sample({3000, 1000}));
        Box box;
        box.paste();
        box.Select(0, 1);
        const QSizeF shown = OnlyPicture(box.textCursor())->shown;
        QVERIFY(shown.width() > 200 && shown.width() <= box.viewport()->width());
        QCOMPARE(qRound(shown.width() / shown.height()), 3);
        box.Set("words"); // it would share the line with the tall picture
        box.Select(5, 5);
        box.paste();
        QCOMPARE(box.Shown(), u"words\u2028#"_s);
        box.undo();
        QCOMPARE(box.Shown(), u"words"_s);
    }

    void FilesAreDropped()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(u"sample.bmp"_s);
        QVERIFY(Sample().save(path));
        QMimeData files;
        files.setUrls({QUrl::fromLocalFile(path), QUrl(u"http://127.0.0.1:9/a.png"_s), QUrl::fromLocalFile(path)});
        Box box;
        box.Set("ab");
        Drop(box, files, {299, 199});
        QCOMPARE(box.Shown(), u"ab#http://127.0.0.1:9/a.png|#"_s);
        box.undo(); // the link
        box.undo();
        QCOMPARE(box.Shown(), u"ab"_s);
        QMimeData other;
        other.setUrls({QUrl(u"file:///dev/zero"_s)});
        Drop(box, other, {299, 199});
        QCOMPARE(box.Text(), u"abfile:///dev/zero"_s);
        other.setUrls(QList<QUrl>(1000, QUrl::fromLocalFile(path)));
        Drop(box, other, {299, 199});
        QVERIFY(!box.Shown().contains(u'#'));
    }

    // Between boxes of this program a paragraph's end is copied as it is. Other programs add one at the end.
    void PartOfAParagraphStaysOne()
    {
        Box from, to;
        from.Set("x\\par y");
        from.Select(0, 2);
        from.copy();
        to.Set("\\qc ab");
        to.Select(1, 1);
        to.paste();
        QCOMPARE(to.Shown(), u"ax|b"_s);
        QMimeData foreign;
        foreign.setData(u"text/rtf"_s, g_rtf + "\\ql x\\par}");
        to.Set("\\qc ab");
        to.Select(1, 1);
        to.insertFromMimeData(&foreign);
        QCOMPARE(to.Shown(), u"axb"_s);
        QCOMPARE(to.textCursor().blockFormat().alignment(), Qt::AlignHCenter);
    }

    void TextTakesTheFormatAtTheCaret()
    {
        QApplication::clipboard()->setText(u"text"_s);
        Box box;
        box.Set("\\b\\cf1 ab" + Group("pngblip", g_png));
        for (const int position : {1, 7}) {
            box.SetSelStart(position);
            box.paste();
            box.Select(position, position + 4);
            QCOMPARE(box.SelBold(), true);
            QCOMPARE(box.SelColor(), 0x0000ffU);
        }
        QCOMPARE(box.Shown(), u"atextb#text"_s);
        box.Set("{\\b a}b");
        box.selectAll();
        box.paste(); // takes the format of the first replaced letter
        box.selectAll();
        QCOMPARE(box.SelBold(), true);
    }

    void NothingIsLoaded()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(u"sample.png"_s);
        QVERIFY(Sample().save(path));
        Box box;
        QVERIFY(
            !box.document()->resource(QTextDocument::ImageResource, QUrl::fromLocalFile(path)).canConvert<QImage>());
        QMimeData page;
        page.setHtml(u"<head><link rel='stylesheet' href='/dev/zero'/></head><body>x</body>"_s);
        box.insertFromMimeData(&page);
        QCOMPARE(box.Shown(), u"x"_s);
    }
};

ORRELIN_TEST(RichTextBoxClipboardTest)
#include "richtextboxclipboardtest.moc"
