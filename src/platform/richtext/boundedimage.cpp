#include "platform/richtext/boundedimage.h"

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr qsizetype MostPasses = 100;

struct Magic
{
    QByteArrayView bytes;
    const char* format;
};
constexpr Magic Magics[] = {{"\x89PNG\r\n\x1a\n", "png"},
                            {"\xff\xd8\xff", "jpeg"},
                            {"GIF8", "gif"},
                            {"BM", "bmp"},
                            {QByteArrayView("\0\0\1\0", 4), "ico"}};

// Reads the image that counts, which for an icon is the largest one.
class Reader
{
public:
    explicit Reader(const QByteArray& file) : m_reader(&m_buffer, ImageFormatOf(file))
    {
        m_buffer.setData(file);
        m_buffer.open(QIODevice::ReadOnly);
        m_reader.setAutoDetectImageFormat(false);
        m_reader.setAutoTransform(true);
        if (m_reader.format() == "ico") FindLargest();
        if (!IsWithinBounds(Size()) || AsksForManyPasses()) m_reader.setDevice(nullptr);
    }

    // A top-down bitmap has a negative height.
    QSize Size() const
    {
        const QSize size = m_reader.size();
        return {size.width(), size.height() < 0 ? -(size.height() + 1) + 1 : size.height()};
    }

    bool IsTurned() const { return m_reader.transformation() != QImageIOHandler::TransformationNone; }

    QImage Read(QSize most)
    {
        if (!m_reader.device()) return {};
        const bool isSideways = m_reader.transformation() & QImageIOHandler::TransformationRotate90;
        const QSize size = Size().boundedTo(isSideways ? most.transposed() : most).expandedTo({1, 1});
        // JPEG is decoded at the wanted size. Other formats would be scaled within their few colours.
        const bool scalesItself = m_reader.format() == "jpeg";
        if (scalesItself && size != Size()) m_reader.setScaledSize(size);
        QImage image = m_reader.read();
        if (image.depth() < 24 && !image.isNull())
            image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32);
        const QSize wanted = isSideways ? size.transposed() : size;
        if (scalesItself || image.isNull() || image.size() == wanted) return image;
        return image.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }

    QSize ShownSize() const
    {
        if (!m_reader.device()) return {};
        return m_reader.transformation() & QImageIOHandler::TransformationRotate90 ? Size().transposed() : Size();
    }

private:
    static bool IsWithinBounds(QSize size)
    {
        return size.width() > 0 && size.height() > 0 && qint64(size.width()) * size.height() <= MostPixels;
    }

    void FindLargest()
    {
        constexpr int MostImages = 64;
        int largest = 0;
        for (int i = 0, width = 0; i < std::min(m_reader.imageCount(), MostImages); ++i) {
            if (!m_reader.jumpToImage(i) || Size().width() <= width) continue;
            width = Size().width();
            largest = i;
        }
        m_reader.jumpToImage(largest);
    }

    // A tiny JPEG can ask for any number of passes over all of its pixels. This marker begins each of them.
    bool AsksForManyPasses() const
    {
        return m_reader.format() == "jpeg" && m_buffer.data().count("\xff\xda") > MostPasses;
    }

    QBuffer m_buffer;
    QImageReader m_reader;
};

} // namespace

const char* ImageFormatOf(QByteArrayView file)
{
    const auto known =
        std::ranges::find_if(Magics, [file](const Magic& magic) { return file.startsWith(magic.bytes); });
    return known == std::end(Magics) ? nullptr : known->format;
}

QSize ImageSize(const QByteArray& file)
{
    return ImageFormatOf(file) ? Reader(file).ShownSize() : QSize();
}

QImage ReadImage(const QByteArray& file, QSize most)
{
    return ImageFormatOf(file) ? Reader(file).Read(most) : QImage();
}

bool IsTurned(const QByteArray& file)
{
    return ImageFormatOf(file) && Reader(file).IsTurned();
}

QByteArray ToBitmapFile(QByteArrayView bitmap)
{
    constexpr quint32 FileHeader = 14, CoreHeader = 12, InfoHeader = 40, Bitfields = 3;
    const auto word = [bitmap](int at) { return qFromLittleEndian<quint16>(bitmap.data() + at); };
    const auto number = [bitmap](int at) { return qFromLittleEndian<quint32>(bitmap.data() + at); };
    const bool isCore = bitmap.size() >= CoreHeader && number(0) == CoreHeader;
    if (!isCore && bitmap.size() < InfoHeader) return {};
    const quint32 depth = word(isCore ? 10 : 14);
    const quint32 used = isCore ? 0 : number(32);
    const quint32 colors = depth > 8 ? used : used > 0 ? std::min(used, 256U) : 1U << depth;
    const quint32 masks = number(0) == InfoHeader && number(16) == Bitfields ? 12 : 0;
    const quint64 offset = quint64{FileHeader} + number(0) + masks + quint64{colors} * (isCore ? 3 : 4);
    if (offset >= quint64(bitmap.size()) + FileHeader) return {};
    QByteArray file("BM");
    for (const quint32 part : {quint32(bitmap.size()) + FileHeader, 0U, quint32(offset)}) {
        const quint32 little = qToLittleEndian(part);
        file.append(reinterpret_cast<const char*>(&little), sizeof little);
    }
    return file + bitmap.toByteArray();
}

QByteArray ToImageFile(const QImage& image, const char* format)
{
    constexpr int JpegQuality = 90;
    QByteArray file;
    QBuffer buffer(&file);
    image.save(&buffer, format, QByteArrayView(format) == "jpeg" ? JpegQuality : -1);
    return file;
}
