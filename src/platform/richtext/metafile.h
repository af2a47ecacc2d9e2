// The bitmaps of a metafile, which is how notes of older programs keep their pictures. Knows only QtGui.
#pragma once

#include <QByteArrayView>
#include <QImage>

// What the metafile's bitmaps paint into its window, at the scale of the finest of them; what none of them covers is
// transparent. Null where there is none: lines, areas and text are not drawn.
QImage BitmapsOfMetafile(QByteArrayView metafile);

// The size of that image, told by the bitmaps' heads alone.
QSize SizeOfMetafile(QByteArrayView metafile);
