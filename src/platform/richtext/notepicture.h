// Inserts pictures into notes and reads them. Knows only QtGui.
#pragma once

#include <QByteArray>
#include <QImage>

#include <optional>

class QTextCursor;

// The size at which a picture is shown, in logical pixels.
struct PictureFit
{
    QSize exact;   // empty: the image's own size
    int width = 0; // maximum width; 0: no limit

    QSize SizeFor(QSize pixels) const; // within LeastPictureSide and GreatestPictureSide
};

// Replaces the selection by a picture as one undo step; the cursor ends behind it. PNG and JPEG files are kept, others
// (GIF, BMP, the largest image of an ICO) become PNG. False: the picture cannot be shown, and nothing has changed.
bool InsertPicture(QTextCursor& cursor, const QByteArray& file, const PictureFit& fit);
bool InsertPicture(QTextCursor& cursor, const QImage& image, const PictureFit& fit);

struct NotePicture
{
    QImage image;     // at its own size; null if it cannot be shown
    QByteArray group; // of rich text
    QSizeF shown;     // logical pixels
};

// The selected picture, if the selection is exactly one picture.
std::optional<NotePicture> OnlyPicture(const QTextCursor& selection);
