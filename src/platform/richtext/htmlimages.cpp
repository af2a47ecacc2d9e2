#include "platform/richtext/htmlimages.h"

#include "platform/richtext/boundedimage.h"
#include "platform/richtext/notepicture.h"
#include "platform/richtext/pictureimage.h"
#include "platform/richtext/rtfpicture.h"

#include <QFile>
#include <QFileInfo>
#include <QTextCursor>
#include <QTextDocument>
#include <QUrl>

#include <algorithm>

namespace {

QByteArray DataOfUrl(QStringView url)
{
    const qsizetype comma = url.indexOf(u',');
    if (comma < 0) return {};
    const QByteArray data = QByteArray::fromPercentEncoding(url.sliced(comma + 1).toLatin1());
    return url.first(comma).endsWith(u";base64", Qt::CaseInsensitive) ? QByteArray::fromBase64(data) : data;
}

QByteArray DataOf(const QString& name)
{
    return name.startsWith(u"data:", Qt::CaseInsensitive) ? DataOfUrl(name) : DataOfFile(QUrl(name));
}

// Visits the images backwards, so that a replacement moves no other image. The cursor selects the image.
template <typename Visit>
void ForEachImage(QTextDocument& document, int begin, int end, Visit visit)
{
    const QString text = document.toRawText();
    QTextCursor cursor(&document);
    for (int position = std::min(end, static_cast<int>(text.size())); position-- > begin;) {
        if (text[position] != QChar::ObjectReplacementCharacter) continue;
        cursor.setPosition(position);
        cursor.setPosition(position + 1, QTextCursor::KeepAnchor);
        visit(cursor);
    }
}

// The cursor selects the image.
void Adopt(QTextCursor& cursor, const QTextImageFormat& image, PictureFit fit)
{
    if (image.width() >= 1 && image.height() >= 1) fit.exact = QSizeF(image.width(), image.height()).toSize();
    if (InsertPicture(cursor, DataOf(image.name()), fit)) return;
    cursor.insertText(image.property(QTextFormat::ImageAltText).toString(), WithoutImage(image));
}

} // namespace

// A pipe or device may never end, and another machine may never answer.
QByteArray DataOfFile(const QUrl& url, qint64 most)
{
    if (!url.isLocalFile() || !url.host().isEmpty()) return {};
    QFile file(url.toLocalFile());
    const QFileInfo info(file);
    if (!info.isFile() || info.size() > MostImageFileBytes || !file.open(QIODevice::ReadOnly)) return {};
    return file.read(std::min(most, MostImageFileBytes));
}

int AdoptImages(QTextDocument& document, int begin, int end, const PictureFit& fit)
{
    ShowPictures(document);
    const int length = document.characterCount();
    ForEachImage(document, begin, end, [&fit](QTextCursor& cursor) {
        const QTextImageFormat image = cursor.charFormat().toImageFormat();
        if (image.isValid() && !image.hasProperty(PictureSourceProperty)) Adopt(cursor, image, fit);
    });
    return end + document.characterCount() - length;
}

void EmbedPictures(QTextDocument& document)
{
    ForEachImage(document, 0, document.characterCount(), [](QTextCursor& cursor) {
        QTextImageFormat picture = cursor.charFormat().toImageFormat();
        const QByteArray file = ImageFileOf(picture);
        if (file.isEmpty()) return cursor.removeSelectedText();
        picture.setName(u"data:image/"_s + QString::fromLatin1(ImageFormatOf(file)) + u";base64,"_s +
                        QString::fromLatin1(file.toBase64()));
        cursor.setCharFormat(picture);
    });
}
