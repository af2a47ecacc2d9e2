// The data and the image of a picture in a note, and its painting. A group is a {\pict ...} or {\object ...} group of
// rich text. Knows only QtGui.
#pragma once

#include <QImage>
#include <QTextFormat>

class QTextDocument;

// Property of the picture's character: its whole group, 7-bit.
inline constexpr int PictureSourceProperty = QTextFormat::UserProperty + 0x500;

inline constexpr QSize AllPixels{1 << 20, 1 << 20}; // no limit

// The image, scaled down if it exceeds most; null if it cannot be shown. Decoded on first use; notes with the same
// picture share it.
QImage ImageOfPicture(const QTextImageFormat& picture, QSize most);

// The size of the image itself; empty if there is none.
QSize PixelsOfPictureGroup(QByteArrayView group);

// The original PNG or JPEG file, else the image as PNG. Empty if it cannot be shown.
QByteArray ImageFileOf(const QTextImageFormat& picture);

// The group for a PNG or JPEG file; shown is in logical pixels.
QByteArray ToPictureGroup(const QByteArray& file, QSize pixels, QSize shown);

// The size in the layout's dots. A zoomed picture is not wider than the text, unless it is so unzoomed.
QSizeF SizeInLayout(const QTextDocument& document, const QTextImageFormat& picture);

// Draws this document's pictures, decoded when they become visible, at the screen's resolution. Other images are drawn
// as frames and never loaded. Boxes and ReadRtf call this; a cloned document needs it again.
void ShowPictures(QTextDocument& document);
