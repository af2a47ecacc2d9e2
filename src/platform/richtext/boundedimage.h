// Image files in memory. They may come from anywhere, so one that would take too much memory or time is rejected. Knows
// only QtGui.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QImage>

inline constexpr qint64 MostPixels = 32'000'000; // larger images are not read

// "png", "jpeg", "bmp", "gif" or "ico", by the first bytes of the file; else nullptr.
const char* ImageFormatOf(QByteArrayView file);

// The size in the file's header, for an icon that of its largest image. Empty if this is no image or it is too large.
QSize ImageSize(const QByteArray& file);

// The image, scaled down if it exceeds most; null if there is none. Photographs are turned upright.
QImage ReadImage(const QByteArray& file, QSize most);

// Whether the photograph has to be turned before it is shown.
bool IsTurned(const QByteArray& file);

// An image file made of a BITMAPINFO and its bits, as metafiles hold them. Empty if the palette is cut off.
QByteArray ToBitmapFile(QByteArrayView bitmap);

// format is one of those that ImageFormatOf returns.
QByteArray ToImageFile(const QImage& image, const char* format);
