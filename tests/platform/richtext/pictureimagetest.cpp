// The look of painted pictures in notes, damaged ones included.
#include "platform/look/paper.h"
#include "platform/richtext/rtfreader.h"
#include "platform/richtext/rtfwriter.h"
#include "platform/richtext/samplepictures.h"
#include "testmain.h"

#include <QRandomGenerator>

namespace {

const QColor g_ground(10, 250, 10);

QByteArray DibOf(const QImage& image)
{
    return FileOf(image, "bmp").sliced(14);
}

// A bitmap of two pixels, the first one red, with rows of the given bytes.
QByteArray HandMadeDib(quint16 depth, const QByteArray& palette, const QByteArray& row, qint32 height = 1)
{
    QByteArray dib;
    Append<quint32>(dib, {40, 2, quint32(height)});
    Append<quint16>(dib, {1, depth});
    Append<quint32>(dib, {0, 0, 0, 0, quint32(palette.size() / 4), 0});
    return dib + palette + row;
}

QByteArray CoreDib()
{
    QByteArray dib;
    Append<quint32>(dib, {12});
    Append<quint16>(dib, {2, 1, 1, 1});
    return dib + QByteArray::fromHex("2828c8 c82828") + QByteArray::fromHex("40000000");
}

QByteArray Record(quint16 function, std::initializer_list<qint16> words, const QByteArray& data = {})
{
    QByteArray record;
    Append<quint32>(record, {quint32(3 + words.size() + data.size() / 2)});
    Append<quint16>(record, {function});
    Append<qint16>(record, words);
    return record + data;
}

QByteArray Metafile(const QByteArray& records, bool isPlaceable = false)
{
    QByteArray file;
    if (isPlaceable) file = QByteArray::fromHex("d7cdc69a0000 0000000028001400 6000 00000000 0000");
    Append<quint16>(file, {1, 9, 0x300});
    Append<quint32>(file, {quint32(9 + records.size() / 2 + 3)});
    Append<quint16>(file, {0});
    Append<quint32>(file, {100});
    Append<quint16>(file, {0});
    return file + Record(0x020B, {0, 0}) + Record(0x020C, {20, 40}) + records + Record(0, {});
}

// The two words of each raster operation.
constexpr qint16 CopyLow = 0x0020, CopyHigh = 0x00CC, AndLow = 0x00C6, AndHigh = 0x0088, OrLow = 0x0086,
                 OrHigh = 0x00EE, XorLow = 0x0046, XorHigh = 0x0066;

QByteArray StretchDib(qint16 low, qint16 high, const QImage& image, qint16 x = 0, qint16 width = 40)
{
    const auto w = qint16(image.width()), h = qint16(image.height());
    return Record(0x0F43, {low, high, 0, h, w, 0, 0, 20, width, 0, x}, DibOf(image));
}

// As a box shows it, without the paper.
QImage Paint(const QByteArray& body, double scale = 1)
{
    QTextDocument document;
    document.setDocumentMargin(0);
    document.setTextWidth(200);
    ReadRtf("{\\rtf1\\fs2 " + body + "}", document);
    QImage image(QSize(200, 100) * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(g_ground);
    QPainter painter(&image);
    document.drawContents(&painter);
    return image;
}

} // namespace

class PictureImageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ShowsWhatItHolds()
    {
        const auto row = [this](const char* name, const QByteArray& body) {
            if (QTest::currentTestFailed()) return;
            const InRow inRow(this, name);
            const QImage image = Paint(body);
            for (const int y : {2, 17}) {
                QVERIFY2(IsNear(image.pixelColor(5, y), g_left), qPrintable(image.pixelColor(5, y).name()));
                QVERIFY2(IsNear(image.pixelColor(35, y), g_right), qPrintable(image.pixelColor(35, y).name()));
            }
            QCOMPARE(image.pixelColor(50, 10), g_ground);
            QTextDocument document;
            ReadRtf("{\\rtf1 " + body + '}', document);
            const QByteArray group = GroupAt(document, 0);
            QVERIFY(WriteRtf(document).contains(group));
            QVERIFY(group.startsWith(body.first(7)) || body.contains(group));
        };
        const auto dib = [&](const char* name, const QByteArray& data) { row(name, Group("dibitmap0", data)); };
        const auto wmf = [&](const char* name, const QByteArray& data) { row(name, Group("wmetafile8", data)); };
        row("PNG", Group("pngblip", FileOf(Sample(), "png")));
        row("JPEG", Group("jpegblip", FileOf(Sample(), "jpeg")));
        row("JPEG, larger than shown", Group("jpegblip", FileOf(Sample({800, 400}), "jpeg")));
        const QByteArray png = FileOf(Sample(), "png");
        row("binary",
            "{\\pict\\pngblip\\picwgoal600\\pichgoal300\\bin" + QByteArray::number(png.size()) + ' ' + png + '}');
        row("size of its pixels", "{\\pict\\pngblip " + png.toHex() + '}');
        row("object", "{\\object\\objemb{\\*\\objdata 0105}{\\result{\\rtlch{" + Group("pngblip", png) + "}}}}");
        row("beside its twin", "{\\*\\shppict" + Group("pngblip", png) + "}{\\nonshppict{\\pict\\wmetafile8 0102}}");
        const QByteArray redFirst = QByteArray::fromHex("2828c800c8282800");
        dib("1 bit", HandMadeDib(1, redFirst, QByteArray::fromHex("40000000")));
        dib("4 bits", HandMadeDib(4, redFirst, QByteArray::fromHex("01000000")));
        dib("8 bits", HandMadeDib(8, redFirst, QByteArray::fromHex("00010000")));
        dib("16 bits", HandMadeDib(16, {}, QByteArray::fromHex("a564b914")));
        dib("24 bits", DibOf(Sample()));
        dib("32 bits", HandMadeDib(32, {}, redFirst));
        dib("from top to bottom", HandMadeDib(24, {}, QByteArray::fromHex("2828c8c828280000"), -1));
        dib("old header", CoreDib());
        const QByteArray all = StretchDib(CopyLow, CopyHigh, Sample());
        wmf("STRETCHDIB", Metafile(all));
        wmf("placeable", Metafile(all, true));
        row("metafile, size of its pixels", "{\\pict\\wmetafile8 " + Metafile(all).toHex() + '}');
        wmf("DIBSTRETCHBLT",
            Metafile(Record(0x0B41, {CopyLow, CopyHigh, 20, 40, 0, 0, 20, 40, 0, 0}, DibOf(Sample()))));
        wmf("DIBBITBLT", Metafile(Record(0x0940, {CopyLow, CopyHigh, 0, 0, 20, 40, 0, 0}, DibOf(Sample()))));
        wmf("SETDIBTODEV", Metafile(Record(0x0D33, {0, 20, 0, 0, 0, 20, 40, 0, 0}, DibOf(Sample()))));
        wmf("two side by side", Metafile(StretchDib(CopyLow, CopyHigh, Sample().copy(0, 0, 20, 20), 0, 20) +
                                         StretchDib(CopyLow, CopyHigh, Sample().copy(20, 0, 20, 20), 20, 20)));
        wmf("mirrored", Metafile(StretchDib(CopyLow, CopyHigh, Sample().mirrored(true, false), 40, -40)));
        wmf("behind lines", Metafile(Record(0x0214, {1, 1}) + Record(0x0213, {5, 5}) + all));
    }

    void IconsOfMetafilesAreTransparent()
    {
        for (const bool inverts : {false, true}) {
            const InRow inRow(this, inverts ? "xor" : "or");
            QImage mask(40, 20, QImage::Format_RGB32), colors(mask.size(), QImage::Format_RGB32);
            mask.fill(Qt::white);
            colors.fill(Qt::black);
            QPainter(&mask).fillRect(0, 0, 20, 20, Qt::black);
            QPainter(&colors).fillRect(0, 0, 20, 20, g_left);
            const QByteArray icon = StretchDib(AndLow, AndHigh, mask) +
                                    StretchDib(inverts ? XorLow : OrLow, inverts ? XorHigh : OrHigh, colors);
            const QImage image = Paint(Group("wmetafile8", Metafile(icon)));
            QCOMPARE(image.pixelColor(5, 10), g_left);
            QCOMPARE(image.pixelColor(35, 10), g_ground);
        }
    }

    void WhatCannotBeShownIsAFrame()
    {
        QByteArray huge = HandMadeDib(24, {}, QByteArray(64, '\x33'));
        qToLittleEndian<quint32>(20000, huge.data() + 4);
        qToLittleEndian<quint32>(20000, huge.data() + 8);
        QByteArray hugePalette = HandMadeDib(24, {}, QByteArray(64, '\x33'));
        qToLittleEndian<quint32>(0xFFFFFFFF, hugePalette.data() + 32);
        const std::pair<const char*, QByteArray> rows[] = {
            {"vector", Group("wmetafile8", Metafile(Record(0x0214, {1, 1}) + Record(0x0213, {5, 5})))},
            {"EMF", Group("emfblip", "\x01")},
            {"unknown kind", Group("macpict", FileOf(Sample(), "png"))},
            {"no image", Group("pngblip", "no image")},
            {"cut off in its header", Group("pngblip", FileOf(Sample(), "png").first(20))},
            {"huge bitmap", Group("dibitmap0", huge)},
            {"huge palette", Group("dibitmap0", hugePalette)},
            {"huge bitmap in a metafile",
             Group("wmetafile8", Metafile(Record(0x0F43, {CopyLow, CopyHigh, 0, 1, 1, 0, 0, 1, 1, 0, 0}, huge)))},
            {"bomb", Group("pngblip", FileOf(QImage(8000, 5000, QImage::Format_Mono), "png"))},
            {"many passes", Group("jpegblip", FileOf(Sample(), "jpeg") + QByteArray("\xff\xda").repeated(200))},
            {"SVG", Group("pngblip", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>")},
            {"records without length", Group("wmetafile8", Metafile(QByteArray(600, '\0')))},
        };
        for (const auto& [name, body] : rows) {
            const InRow inRow(this, name);
            const QImage image = Paint(body);
            QCOMPARE(image.pixelColor(20, 10), QColor(paper::MemoPaper));
            QCOMPARE(image.pixelColor(0, 10), QColor(paper::SoftInk));
            QCOMPARE(image.pixelColor(39, 10), QColor(paper::SoftInk));
            QCOMPARE(image.pixelColor(40, 10), g_ground);
        }
    }

    void DamagedOnesDoNoHarm()
    {
        const std::pair<const char*, QByteArray> samples[] = {
            {"dibitmap0", HandMadeDib(4, QByteArray(64, '\x50'), QByteArray(8, '\1'))},
            {"dibitmap0", CoreDib()},
            {"wmetafile8",
             Metafile(StretchDib(AndLow, AndHigh, Sample({4, 4})) + StretchDib(OrLow, OrHigh, Sample({4, 4})))},
            {"pngblip", FileOf(Sample({9, 9}), "png")},
        };
        for (const auto& [kind, data] : samples)
            for (qsizetype length = 0; length < data.size(); ++length)
                Paint(Group(kind, data.first(length)));
        QRandomGenerator random(5);
        for (int round = 0; round < 1000; ++round) {
            auto [kind, data] = samples[random.bounded(int(std::size(samples)))];
            for (int changes = 1 + random.bounded(4); changes > 0; --changes)
                data[random.bounded(int(data.size()))] = char(random.bounded(256));
            QCOMPARE(Paint(Group(kind, data)).pixelColor(120, 60), g_ground);
        }
    }

    // Each pixel of the icon is one pixel of the screen, even after text that ends between two.
    void IconsAreSharpOnFineScreens()
    {
        for (const char* before : {"", "\\fs17 ill "}) {
            const InRow inRow(this, before);
            QImage icon(64, 64, QImage::Format_RGB32);
            QRandomGenerator random(3);
            for (int i = 0; i < 64 * 64; ++i)
                icon.setPixelColor(i % 64, i / 64, QColor(random.bounded(256), 0, 255));
            const QImage image = Paint(before + Group("pngblip", FileOf(icon, "png"), {32, 32}), 2);
            int left = 0;
            while (left < 100 && image.pixelColor(left, 10).blue() != 255)
                ++left;
            int top = 0;
            while (top < 100 && image.pixelColor(left, top).blue() != 255)
                ++top;
            QImage shown = image.copy(left, top, 64, 64);
            shown.setDevicePixelRatio(1);
            QCOMPARE(shown, icon);
        }
    }
};

ORRELIN_TEST(PictureImageTest)
#include "pictureimagetest.moc"
