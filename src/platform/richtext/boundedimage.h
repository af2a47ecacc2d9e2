// Image files in memory, which may come from anywhere: what would take too much memory or time is no image. Knows only
// QtGui.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QImage>

inline constexpr qint64 MostPixels = 32'000'000; // of an image; a larger one is not read

// "png", "jpeg", "bmp", "gif" or "ico", by what the file begins with; else nullptr.
const char* ImageFormatOf(QByteArrayView file);

// What the file says of itself, of an icon its largest image; empty for no image and for one beyond bounds.
QSize ImageSize(const QByteArray& file);

// The image, scaled down where it is wider or higher than most pixels; null if there is none. A photograph is turned
// the way its camera was held.
QImage ReadImage(const QByteArray& file, QSize most);

// Whether a photograph is to be turned before it is shown.
bool IsTurned(const QByteArray& file);

// A file from what stands in memory and in metafiles without a file's header: BITMAPINFO and the bits. Empty if it is
// cut off within its palette.
QByteArray ToBitmapFile(QByteArrayView bitmap);

// The other way round; the format is one that ImageFormatOf names.
QByteArray ToImageFile(const QImage& image, const char* format);
