#include "platform/richtext/pictureimage.h"

#include "platform/desktop/twips.h"
#include "platform/look/paper.h"
#include "platform/richtext/boundedimage.h"
#include "platform/richtext/metafile.h"
#include "platform/richtext/rtftokenizer.h"

#include <QAbstractTextDocumentLayout>
#include <QCache>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QTextDocument>
#include <QTextObjectInterface>

#include <algorithm>

namespace {

constexpr qsizetype CacheBytes = 64 << 20;

struct PictureData
{
    enum Kind : quint8
    {
        Other, // cannot be shown
        File,  // PNG or JPEG file
        Bitmap,
        Metafile
    };

    Kind kind = Other;
    QByteArray bytes;
};

struct KindWord
{
    QByteArrayView word;
    PictureData::Kind kind;
};
constexpr KindWord KindWords[] = {{"dibitmap", PictureData::Bitmap},
                                  {"jpegblip", PictureData::File},
                                  {"pngblip", PictureData::File},
                                  {"wmetafile", PictureData::Metafile}};

struct Shown
{
    QString name; // identifies the picture: contains a digest
    QSize most;

    bool operator==(const Shown&) const = default;
    friend size_t qHash(const Shown& shown, size_t seed)
    {
        return qHashMulti(seed, shown.name, shown.most.width(), shown.most.height());
    }
};

// The data of the group's first picture that has any.
PictureData DataOfPictureGroup(QByteArrayView group)
{
    PictureData data;
    QByteArray digits;
    int depth = 0, pictureDepth = -1;
    RtfTokenizer tokenizer(group);
    for (RtfToken token = tokenizer.Next(); token.kind != RtfToken::End; token = tokenizer.Next()) {
        if (token.kind == RtfToken::Open) ++depth;
        if (token.kind == RtfToken::Close && depth-- == pictureDepth) {
            if (!digits.isEmpty()) break;
            pictureDepth = -1;
        }
        if (token.IsWord("pict")) {
            pictureDepth = depth;
            data.kind = PictureData::Other;
        }
        if (depth != pictureDepth) continue;
        const auto known = std::ranges::find(KindWords, token.bytes, &KindWord::word);
        if (token.kind == RtfToken::Word && known != std::end(KindWords)) data.kind = known->kind;
        if (token.kind == RtfToken::Text) digits += token.bytes;
    }
    data.bytes = QByteArray::fromHex(digits);
    return data;
}

// Empty if there is none.
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

// Draws picture characters when they become visible, sharp on any screen.
class PictureHandler : public QObject, public QTextObjectInterface
{
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    explicit PictureHandler(QTextDocument& document) : QObject(&document)
    {
        // documentLayout() would create a layout, which is expensive, so wait for it.
        connect(&document, &QTextDocument::documentLayoutChanged, this, [this, &document] { Serve(document); });
        if (document.findChild<QAbstractTextDocumentLayout*>({}, Qt::FindDirectChildrenOnly)) Serve(document);
    }

    QSizeF intrinsicSize(QTextDocument* document, int, const QTextFormat& format) override
    {
        return SizeInLayout(*document, format.toImageFormat());
    }

    void drawObject(QPainter* painter, const QRectF& rect, QTextDocument*, int, const QTextFormat& format) override
    {
        // Aligned to device pixels, or the picture would be blurred.
        const QTransform toDevice = painter->deviceTransform();
        const QRectF onDevice = toDevice.mapRect(rect);
        const QRect whole(onDevice.topLeft().toPoint(), onDevice.size().toSize());
        const QImage image = ImageOfPicture(format.toImageFormat(), whole.size());
        if (image.isNull()) return DrawFrame(*painter, rect);
        painter->save();
        painter->setRenderHint(QPainter::SmoothPixmapTransform);
        painter->drawImage(toDevice.inverted().mapRect(QRectF(whole)), image);
        painter->restore();
    }

private:
    void Serve(const QTextDocument& document)
    {
        document.documentLayout()->registerHandler(QTextFormat::ImageObject, this);
    }

    static void DrawFrame(QPainter& painter, const QRectF& rect)
    {
        painter.save();
        painter.setPen(paper::SoftInk);
        painter.setBrush(paper::MemoPaper);
        painter.drawRect(rect.adjusted(0, 0, -1, -1));
        painter.restore();
    }
};

} // namespace

QSizeF SizeInLayout(const QTextDocument& document, const QTextImageFormat& picture)
{
    const QSizeF size(qRound(picture.width()), qRound(picture.height()));
    const QPaintDevice* device = document.documentLayout()->paintDevice();
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double scale = device && screen ? device->logicalDpiY() / screen->logicalDotsPerInchY() : 1;
    const double room = document.textWidth() - 2 * document.documentMargin() * scale;
    if (scale <= 1 || room <= 0 || size.width() * scale <= room) return size * scale;
    return size * std::max(1.0, room / size.width());
}

QImage ImageOfPicture(const QTextImageFormat& picture, QSize most)
{
    static QCache<Shown, QImage> cache(CacheBytes);
    const QByteArray group = picture.property(PictureSourceProperty).toByteArray();
    if (group.isEmpty()) return {};
    const Shown shown{picture.name(), most.expandedTo({1, 1})};
    if (const QImage* known = cache.object(shown)) return *known;
    const QImage image = Decode(group, shown.most);
    constexpr qsizetype EntryBytes = 1024; // failures are cached too
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

QByteArray ToPictureGroup(const QByteArray& file, QSize pixels, QSize shown)
{
    const bool isJpeg = QByteArrayView(ImageFormatOf(file)) == "jpeg";
    QByteArray group("{\\pict");
    group += isJpeg ? "\\jpegblip" : "\\pngblip";
    const auto write = [&group](const char* word, int number) { group += word + QByteArray::number(number); };
    write("\\picw", pixels.width());
    write("\\pich", pixels.height());
    write("\\picwgoal", shown.width() * TwipsPerPixel);
    write("\\pichgoal", shown.height() * TwipsPerPixel);
    return group + ' ' + file.toHex() + '}';
}

void ShowPictures(QTextDocument& document)
{
    if (document.findChild<PictureHandler*>({}, Qt::FindDirectChildrenOnly)) return;
    new PictureHandler(document);
}

#include "pictureimage.moc"
