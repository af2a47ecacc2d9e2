// What a picture of a note looks like. Knows only QtGui.
#pragma once

#include <QImage>

class QTextImageFormat;

inline constexpr QSize AllPixels{1 << 20, 1 << 20}; // for an image as large as it is

// The image, scaled down to most pixels where it is wider or higher; null where there is none that can be shown.
// Decoded when it is first asked for, and once for all notes that hold the same picture.
QImage ImageOfPicture(const QTextImageFormat& picture, QSize most);

// The image's own size in pixels; empty where there is none. The group is one of rich text.
QSize PixelsOfPictureGroup(QByteArrayView group);

// The picture as an image file: the PNG or JPEG that it is, else a PNG of what is shown. Empty where there is nothing.
QByteArray ImageFileOf(const QTextImageFormat& picture);
