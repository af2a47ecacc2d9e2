// Reads the bitmaps of a metafile, in which older programs store pictures. Knows only QtGui.
#pragma once

#include <QByteArrayView>
#include <QImage>

// Paints the metafile's bitmaps at the scale of the finest one; uncovered areas are transparent. Lines, areas and text
// are not drawn. Null if there is no bitmap.
QImage BitmapsOfMetafile(QByteArrayView metafile);

// The size of that image, from the bitmap headers alone.
QSize SizeOfMetafile(QByteArrayView metafile);
