#include "platform/richtext/pictureimage.h"

#include "platform/richtext/boundedimage.h"
#include "platform/richtext/metafile.h"
#include "platform/richtext/picturegroup.h"

#include <QCache>

#include <limits>

namespace {

constexpr qsizetype CacheBytes = 64 << 20;

struct Shown
{
    QString name; // says which picture, as it holds a digest of it
    QSize most;

    bool operator==(const Shown&) const = default;
    friend size_t qHash(const Shown& shown, size_t seed)
    {
        return qHashMulti(seed, shown.name, shown.most.width(), shown.most.height());
    }
};

QImage Decode(QByteArrayView group, QSize most)
{
    const PictureData data = DataOfPictureGroup(group);
    switch (data.kind) {
    case PictureData::File:
        return ReadImage(data.bytes, most);
    case PictureData::Bitmap:
        return ReadImage(ToBitmapFile(data.bytes), most);
    case PictureData::Metafile: {
        const QImage whole = BitmapsOfMetafile(data.bytes);
        const QSize size = whole.size().boundedTo(most);
        return size == whole.size() ? whole : whole.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    case PictureData::Other:
        break;
    }
    return {};
}

} // namespace

QImage ImageOfPicture(const QTextImageFormat& picture, QSize most)
{
    static QCache<Shown, QImage> cache(CacheBytes);
    const QByteArray group = picture.property(PictureSourceProperty).toByteArray();
    if (group.isEmpty()) return {};
    const Shown shown{picture.name(), most.expandedTo({1, 1})};
    if (const QImage* known = cache.object(shown)) return *known;
    const QImage image = Decode(group, shown.most);
    constexpr qsizetype EntryBytes = 1024; // what cannot be shown is remembered too
    cache.insert(shown, new QImage(image), image.sizeInBytes() + EntryBytes);
    return image;
}

QSize PixelsOfPictureGroup(QByteArrayView group)
{
    const PictureData data = DataOfPictureGroup(group);
    switch (data.kind) {
    case PictureData::File:
        return ImageSize(data.bytes);
    case PictureData::Bitmap:
        return ImageSize(ToBitmapFile(data.bytes));
    case PictureData::Metafile:
        return SizeOfMetafile(data.bytes);
    case PictureData::Other:
        break;
    }
    return {};
}

QByteArray ImageFileOf(const QTextImageFormat& picture)
{
    const PictureData data = DataOfPictureGroup(picture.property(PictureSourceProperty).toByteArray());
    const QImage image = ImageOfPicture(picture, AllPixels);
    const bool isFile = data.kind == PictureData::File;
    return image.isNull() ? QByteArray() : isFile ? data.bytes : ToImageFile(image, "png");
}
