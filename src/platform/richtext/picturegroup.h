// The inside of a {\pict} group of rich text: an image file or one that stands in memory, and its sizes. Knows only
// QtGui.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QSize>
#include <QTextFormat>

// Of a picture's character: its whole group, {\pict ...} or {\object ...}, of 7-bit characters.
inline constexpr int PictureSourceProperty = QTextFormat::UserProperty + 0x500;

struct PictureData
{
    enum Kind : quint8
    {
        Other, // of no kind that can be shown
        File,  // an image file
        Bitmap,
        Metafile
    };

    Kind kind = Other;
    QByteArray bytes;
};

// Of the first picture in the group that has data.
PictureData DataOfPictureGroup(QByteArrayView group);

// The group for a PNG or JPEG file; shown in logical pixels.
QByteArray ToPictureGroup(const QByteArray& file, QSize pixels, QSize shown);
