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

// Empty where it is none.
QByteArray ImageFileIn(const PictureData& data)
{
    if (data.kind == PictureData::File) return data.bytes;
    return data.kind == PictureData::Bitmap ? ToBitmapFile(data.bytes) : QByteArray();
}

QImage Decode(QByteArrayView group, QSize most)
{
    const PictureData data = DataOfPictureGroup(group);
    if (data.kind != PictureData::Metafile) return ReadImage(ImageFileIn(data), most);
    const QImage whole = BitmapsOfMetafile(data.bytes);
    const QSize size = whole.size().boundedTo(most);
    return size == whole.size() ? whole : whole.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
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
    return data.kind == PictureData::Metafile ? SizeOfMetafile(data.bytes) : ImageSize(ImageFileIn(data));
}

QByteArray ImageFileOf(const QTextImageFormat& picture)
{
    const PictureData data = DataOfPictureGroup(picture.property(PictureSourceProperty).toByteArray());
    const QImage image = ImageOfPicture(picture, AllPixels);
    const bool isFile = data.kind == PictureData::File;
    return image.isNull() ? QByteArray() : isFile ? data.bytes : ToImageFile(image, "png");
}
