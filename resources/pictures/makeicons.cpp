// makeicons FOLDER PICTURE.svg...: writes FOLDER/PICTURE.ico for each picture, every size drawn from the SVG itself
// and not scaled from another. All entries are plain bitmaps, since not every reader of icons takes PNG inside one.
#include <QCoreApplication>
#include <QDataStream>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QSaveFile>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {
constexpr int sizes[] = {16, 24, 32, 48, 64};
constexpr quint32 directoryHeader = 6, directoryEntry = 16, bitmapHeader = 40;

int Fail(const QString& reason)
{
    std::fprintf(stderr, "makeicons: %s\n", qPrintable(reason));
    return 1;
}

QImage Drawn(const QString& picture, int size, QString* error)
{
    QImageReader reader(picture, "svg");
    reader.setScaledSize(QSize(size, size));
    QImage image = reader.read();
    if (image.isNull()) *error = picture + u": "_s + reader.errorString();
    return image.convertToFormat(QImage::Format_ARGB32);
}

// Rows go from the bottom up. The mask of one bit a pixel, padded to four bytes, is for readers that know no alpha.
QByteArray Bitmap(const QImage& image)
{
    QByteArray bytes, mask;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out << bitmapHeader << qint32(image.width()) << qint32(image.height() * 2); // both the colours and the mask
    out << quint16(1) << quint16(32) << quint32(0) << quint32(0) << qint32(0) << qint32(0) << quint32(0) << quint32(0);
    for (int y = image.height() - 1; y >= 0; --y) {
        QByteArray row(qsizetype(image.width() + 31) / 32 * 4, '\0');
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            out << pixel;
            if (qAlpha(pixel) == 0) row[x / 8] = char(row[x / 8] | 0x80 >> x % 8);
        }
        mask += row;
    }
    return bytes + mask;
}

QByteArray Container(const QList<QByteArray>& bitmaps)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out << quint16(0) << quint16(1) << quint16(bitmaps.size());
    auto offset = quint32(directoryHeader + directoryEntry * bitmaps.size());
    for (qsizetype i = 0; i < bitmaps.size(); ++i) {
        out << quint8(sizes[i]) << quint8(sizes[i]) << quint8(0) << quint8(0) << quint16(1) << quint16(32);
        out << quint32(bitmaps[i].size()) << offset;
        offset += quint32(bitmaps[i].size());
    }
    return bytes + bitmaps.join();
}

int Make(const QString& picture, const QString& icon)
{
    QList<QByteArray> bitmaps;
    for (const int size : sizes) {
        QString error;
        const QImage image = Drawn(picture, size, &error);
        if (!error.isEmpty()) return Fail(error);
        bitmaps += Bitmap(image);
    }
    QSaveFile file(icon);
    if (!file.open(QIODevice::WriteOnly) || file.write(Container(bitmaps)) < 0 || !file.commit())
        return Fail(icon + u": "_s + file.errorString());
    return 0;
}
} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 3) return Fail(u"usage: makeicons FOLDER PICTURE.svg..."_s);
    if (!QImageReader::supportedImageFormats().contains("svg"))
        return Fail(u"Qt has no image plugin for SVG; install the package libqt6svg6 and build again"_s);

    const QDir folder(arguments[1]);
    if (!folder.mkpath(u"."_s)) return Fail(folder.path() + u": cannot be made"_s);
    for (const QString& picture : arguments.mid(2))
        if (Make(picture, folder.filePath(QFileInfo(picture).completeBaseName() + u".ico"_s)) != 0) return 1;
    return 0;
}
