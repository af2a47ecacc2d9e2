// Pictures in rich text. The source is kept in the character's format and written back unchanged; a picture that cannot
// be drawn is shown as a frame of its size. Knows only QtGui.
#pragma once

#include "platform/richtext/pictureimage.h"
#include "platform/richtext/rtftokenizer.h"

#include <QByteArray>
#include <QTextCharFormat>

class QTextDocument;

inline constexpr int LeastPictureSide = 8; // as shown, in logical pixels
inline constexpr int GreatestPictureSide = 4096;

struct RtfPicture
{
    QByteArray source;
    bool hasData = false; // there is something to show
    QSizeF size;          // logical pixels, within bounds
};

// Call it behind the control word that opens the group. Reads to the end of the group and leaves the closing brace.
RtfPicture ReadRtfPicture(RtfTokenizer& tokenizer, QByteArrayView word);

// The character format of the picture, for this document, which will show it.
QTextImageFormat ToImageFormat(const RtfPicture& picture, QTextDocument& document);

// The format without its image properties, for text typed beside a picture.
QTextCharFormat WithoutImage(QTextCharFormat format);
