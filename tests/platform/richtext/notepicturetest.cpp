// Pictures in notes: insertion and output.
#include "platform/richtext/notepicture.h"

#include "platform/richtext/htmlimages.h"
#include "platform/richtext/rtfreader.h"
#include "platform/richtext/rtfwriter.h"
#include "platform/richtext/samplepictures.h"
#include "testmain.h"

#include <QTemporaryDir>

class NotePictureTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void FilesGoIn()
    {
        const QByteArray png = FileOf(Sample(), "png"), jpeg = FileOf(Sample(), "jpeg");
        const QByteArray sizes = "\\picw40\\pich20\\picwgoal300\\pichgoal150 ";
        // kept: the beginning of the stored picture
        const std::tuple<const char*, QByteArray, QByteArray> rows[] = {
            {"PNG", png, "{\\pict\\pngblip" + sizes + png.toHex() + '}'},
            {"JPEG", jpeg, "{\\pict\\jpegblip" + sizes + jpeg.toHex() + '}'},
            {"BMP", FileOf(Sample(), "bmp"), "{\\pict\\pngblip" + sizes},
            {"ICO", FileOf(Sample(), "ico"), "{\\pict\\pngblip" + sizes},
        };
        for (const auto& [name, file, kept] : rows) {
            const InRow inRow(this, name);
            QTextDocument document(u"ab"_s);
            QTextCursor cursor = Selection(document, 1, 2);
            QVERIFY(InsertPicture(cursor, file, {.exact = {20, 10}}));
            QCOMPARE(cursor.position(), 2);
            QVERIFY(!cursor.hasSelection());
            QVERIFY(GroupAt(document, 1).startsWith(kept));
            const QByteArray rtf = WriteRtf(document);
            QTextDocument read;
            ReadRtf(rtf, read);
            QCOMPARE(WriteRtf(read), rtf);
            QVERIFY(IsNear(OnlyPicture(Selection(read, 1, 2))->image.pixelColor(5, 5), g_left));
            const QTextImageFormat format = Selection(read, 1, 2).charFormat().toImageFormat();
            QCOMPARE(QSizeF(format.width(), format.height()), QSizeF(20, 10));
            document.undo();
            QCOMPARE(document.toPlainText(), u"ab"_s);
        }
    }

    void TheLargestImageOfAnIconIsTaken()
    {
        const QByteArray small = FileOf(Sample({16, 16}), "png"), large = FileOf(Sample({64, 64}), "png");
        QByteArray icon = QByteArray::fromHex("000001000200 10100000 01002000");
        Append<quint32>(icon, {quint32(small.size()), 38});
        icon += QByteArray::fromHex("40400000 01002000");
        Append<quint32>(icon, {quint32(large.size()), quint32(38 + small.size())});
        QTextDocument document;
        QTextCursor cursor(&document);
        QVERIFY(InsertPicture(cursor, icon + small + large, {.exact = {32, 32}}));
        QCOMPARE(OnlyPicture(Selection(document, 0, 1))->image.size(), QSize(64, 64));
    }

    void PhotographsFitTheWidth()
    {
        const std::tuple<const char*, QSize, int, QSize, QSize> rows[] = {
            {"small", QSize(40, 20), 100, QSize(40, 20), QSize(40, 20)},
            {"wide", QSize(150, 50), 100, QSize(100, 33), QSize(150, 50)},
            {"kept no larger than seen", QSize(1000, 500), 100, QSize(100, 50), QSize(300, 150)},
            {"no width given", QSize(5000, 100), 0, QSize(4096, 82), QSize(5000, 100)},
        };
        for (const auto& [name, pixels, width, shown, kept] : rows) {
            const InRow inRow(this, name);
            QTextDocument document;
            QTextCursor cursor(&document);
            QVERIFY(InsertPicture(cursor, Sample(pixels), {.width = width}));
            const auto picture = OnlyPicture(Selection(document, 0, 1));
            QCOMPARE(picture->shown.toSize(), shown);
            QCOMPARE(picture->image.size(), kept);
        }
    }

    void WhatIsNoPictureChangesNothing()
    {
        QTextDocument document(u"ab"_s);
        QTextCursor cursor = Selection(document, 0, 2);
        const int revision = document.revision();
        for (const QByteArray& file : {QByteArray(), QByteArray("text"), FileOf(Sample(), "png").first(60),
                                       FileOf(QImage(8000, 5000, QImage::Format_Mono), "png")})
            QVERIFY(!InsertPicture(cursor, file, {}));
        QVERIFY(!InsertPicture(cursor, QImage(), {}));
        QVERIFY(cursor.hasSelection());
        QCOMPARE(document.revision(), revision);
    }

    void OnlyPictureIsThatAlone()
    {
        const std::tuple<const char*, int, int, bool> rows[] = {
            {"picture", 1, 2, true}, {"with text", 0, 2, false}, {"two", 1, 3, false},
            {"text", 0, 1, false},   {"nothing", 2, 2, false},   {"mark before one", 3, 4, false},
        };
        for (const auto& [name, begin, end, isPicture] : rows) {
            const InRow inRow(this, name);
            QTextDocument document;
            ReadRtf("{\\rtf1 a" + Group("pngblip", FileOf(Sample(), "png")).repeated(2) + "\\par" +
                        Group("jpegblip", "x") + '}',
                    document);
            QCOMPARE(OnlyPicture(Selection(document, begin, end)).has_value(), isPicture);
            QCOMPARE(OnlyPicture(Selection(document, end, begin)).has_value(), isPicture);
        }
    }

    void ImagesOfHtmlBecomePictures()
    {
        const QByteArray png = FileOf(Sample(), "png");
        const QString data = u"data:image/png;base64,"_s + QString::fromLatin1(png.toBase64());
        // in text "#" stands for a picture
        const std::tuple<const char*, QString, QString> rows[] = {
            {"data", u"<img src='%1'>"_s.arg(data), u"a#b"_s},
            {"data in percent", u"<img src='data:image/png,%1'>"_s.arg(QString::fromLatin1(png.toPercentEncoding())),
             u"a#b"_s},
            {"with a size", u"<img width=20 height=10 src='%1'>"_s.arg(data), u"a#b"_s},
            {"two", u"<img src='%1'><img src='%1'>"_s.arg(data), u"a##b"_s},
            {"file", u"<img src='file://PATH'>"_s, u"a#b"_s},
            {"file of another machine", u"<img src='file://otherPATH'>"_s, u"ab"_s},
            {"plain name of a file", u"<img src='PATH'>"_s, u"ab"_s},
            {"device", u"<img src='file:///dev/zero'>"_s, u"ab"_s},
            {"remote", u"<img src='http://127.0.0.1:9/x.png'>"_s, u"ab"_s},
            {"remote, with words", u"<img alt='sun' src='https://127.0.0.1:9/x.png'>"_s, u"asunb"_s},
            {"damaged", u"<img alt='sun' src='data:image/png;base64,AAAA'><img src='data:'>"_s, u"asunb"_s},
        };
        for (const auto& [name, tag, text] : rows) {
            const InRow inRow(this, name);
            QTemporaryDir folder;
            const QString path = folder.filePath(u"sample.png"_s);
            QVERIFY(Sample().save(path));
            QTextDocument document;
            document.setHtml(u'a' + QString(tag).replace(u"PATH"_s, path) + u'b');
            const int end = AdoptImages(document, 0, document.characterCount() - 1, {});
            QCOMPARE(end, document.characterCount() - 1);
            QCOMPARE(document.toPlainText().replace(QChar::ObjectReplacementCharacter, u'#'), text);
            if (!document.toPlainText().contains(QChar::ObjectReplacementCharacter)) continue;
            QVERIFY(GroupAt(document, 1).startsWith("{\\pict\\pngblip"));
            const bool isSized = tag.contains(u"width"_s);
            QCOMPARE(OnlyPicture(Selection(document, 1, 2))->shown, isSized ? QSizeF(20, 10) : QSizeF(40, 20));
        }
    }
};

ORRELIN_TEST(NotePictureTest)
#include "notepicturetest.moc"
