// Pictures in notes, for those who put them in and take them out. Knows only QtGui.
#pragma once

#include <QByteArray>
#include <QImage>

#include <optional>

class QTextCursor;

// How large a picture is to be shown, in logical pixels.
struct PictureFit
{
    QSize exact;   // or empty: as large as its pixels,
    int width = 0; // but no wider than this, if it is not 0

    QSize SizeFor(QSize pixels) const; // never empty, and within bounds
};

// Put a picture in place of the selection, in one step of undo, and leave the cursor behind it. PNG and JPEG files are
// kept as they are, others (GIF, BMP, the largest image of an ICO) become PNG. False: this is no picture that can be
// shown, and nothing has changed.
bool InsertPicture(QTextCursor& cursor, const QByteArray& file, const PictureFit& fit);
bool InsertPicture(QTextCursor& cursor, const QImage& image, const PictureFit& fit);

struct NotePicture
{
    QImage image;     // in its own pixels; null where it cannot be shown
    QByteArray group; // of rich text
    QSizeF shown;     // logical pixels
};

// The one picture that is selected, if nothing else is.
std::optional<NotePicture> OnlyPicture(const QTextCursor& selection);
