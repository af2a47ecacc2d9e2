#include "editing/picturetools.h"

#include "platform/desktop/folders.h"
#include "platform/runtime/errortail.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSaveFile>

namespace {
constexpr QByteArrayView PictureStart("{\\pict");
constexpr QByteArrayView FixedHeader("{\\pict\\wmetafile8\\picw846\\pich846\\picwgoal479\\pichgoal479");

[[noreturn]] void RaiseAccessError()
{
    throw RunTimeError{errors::PathFileAccess, u"Path/File access error"_s};
}

// A line that begins a picture keeps what stands before it; the rest of its header is dropped.
QByteArray Fixed(const QByteArray& line)
{
    const qsizetype at = line.indexOf(PictureStart);
    return at < 0 ? line : line.first(at) + FixedHeader.toByteArray();
}

QByteArray WithoutLineEnd(QByteArray line)
{
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    return line;
}

void FixPictures(const QString& path)
{
    QFile old(path);
    if (!old.exists()) throw RunTimeError{errors::FileNotFound, u"File not found"_s};
    if (!old.open(QIODevice::ReadOnly)) RaiseAccessError();
    QSaveFile fixed(path);
    if (!fixed.open(QIODevice::WriteOnly)) RaiseAccessError();
    while (!old.atEnd())
        fixed.write(Fixed(WithoutLineEnd(old.readLine())) + "\r\n");
    if (!fixed.flush() || !fixed.commit()) RaiseAccessError();
}
} // namespace

void subFixPictures()
{
    ErrorTail{" in MainForm, subFixPictures"_L1}(
        [] { FixPictures(folders::ApplicationDirectory() + u"/pictures.orl"_s); });
}

void subTransparentBlt(QImage& destination, const QImage& source, const QRect& part, int destX, int destY,
                       QRgb transparent)
{
    QImage cut = source.copy(part).convertToFormat(QImage::Format_RGB32);
    cut.setAlphaChannel(cut.createMaskFromColor(transparent | 0xFF000000, Qt::MaskOutColor));
    QPainter(&destination).drawImage(destX, destY, cut);
}
