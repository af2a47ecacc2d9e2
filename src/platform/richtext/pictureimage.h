// What a picture of a note looks like. Knows only QtGui.
#pragma once

#include <QImage>

class QTextImageFormat;

// The image, scaled down to most pixels where it is wider or higher; null where there is none that can be shown.
// Decoded when it is first asked for, and once for all notes that hold the same picture.
QImage ImageOfPicture(const QTextImageFormat& picture, QSize most);

// The image's own size in pixels; empty where there is none. The group is one of rich text.
QSize PixelsOfPictureGroup(QByteArrayView group);
