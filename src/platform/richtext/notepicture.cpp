#include "platform/richtext/notepicture.h"

#include "platform/richtext/boundedimage.h"
#include "platform/richtext/pictureimage.h"
#include "platform/richtext/rtfpicture.h"

#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace {

constexpr int Sharpness = 3;                  // stored pixels per shown pixel, if a picture is encoded again
constexpr qsizetype MostKeptBytes = 16 << 20; // larger files are encoded again

bool Insert(QTextCursor& cursor, const QByteArray& file, QSize pixels, QSize shown)
{
    const RtfPicture picture{ToPictureGroup(file, pixels, shown), true, shown};
    const QTextImageFormat format = ToImageFormat(picture, *cursor.document());
    if (ImageOfPicture(format, shown).isNull()) return false;
    QTextCharFormat whole = WithoutImage(cursor.charFormat());
    whole.merge(format);
    cursor.insertImage(whole.toImageFormat());
    return true;
}

// Pictures are stored no larger than they can be seen.
bool InsertAnew(QTextCursor& cursor, const QImage& image, const char* format, QSize shown)
{
    const QSize kept = image.size().boundedTo(shown * Sharpness);
    const QImage small =
        kept == image.size() ? image : image.scaled(kept, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QByteArray file = ToImageFile(small, format);
    return !file.isEmpty() && Insert(cursor, file, kept, shown);
}

} // namespace

QSize PictureFit::SizeFor(QSize pixels) const
{
    QSizeF size = exact.isEmpty() ? pixels : exact;
    const double limit = width > 0 ? std::min(width, GreatestPictureSide) : GreatestPictureSide;
    if (size.width() > limit) size *= limit / size.width();
    if (size.height() > GreatestPictureSide) size *= GreatestPictureSide / size.height();
    return size.toSize().expandedTo({LeastPictureSide, LeastPictureSide});
}

bool InsertPicture(QTextCursor& cursor, const QByteArray& file, const PictureFit& fit)
{
    const QSize pixels = ImageSize(file);
    if (pixels.isEmpty()) return false;
    const QByteArrayView format = ImageFormatOf(file);
    const bool isJpeg = format == "jpeg";
    const QSize shown = fit.SizeFor(pixels);
    if ((isJpeg || format == "png") && file.size() <= MostKeptBytes && !IsTurned(file))
        return Insert(cursor, file, pixels, shown);
    const QImage image = ReadImage(file, shown * Sharpness);
    return !image.isNull() && InsertAnew(cursor, image, isJpeg ? "jpeg" : "png", shown);
}

bool InsertPicture(QTextCursor& cursor, const QImage& image, const PictureFit& fit)
{
    return !image.isNull() && InsertAnew(cursor, image, "png", fit.SizeFor(image.deviceIndependentSize().toSize()));
}

std::optional<NotePicture> OnlyPicture(const QTextCursor& selection)
{
    const int begin = selection.selectionStart();
    if (selection.selectionEnd() != begin + 1) return {};
    // A cursor behind a paragraph mark has the format of the next paragraph's first character.
    if (selection.document()->characterAt(begin) != QChar::ObjectReplacementCharacter) return {};
    QTextCursor behind(selection);
    behind.setPosition(begin + 1);
    const QTextImageFormat picture = behind.charFormat().toImageFormat();
    const QByteArray group = picture.property(PictureSourceProperty).toByteArray();
    if (!picture.isValid() || group.isEmpty()) return {};
    return NotePicture{ImageOfPicture(picture, AllPixels), group, {picture.width(), picture.height()}};
}
