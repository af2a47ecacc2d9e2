// Pictures in rich text. A picture's source goes along in the format of its character and is written back as it came;
// one that cannot be drawn is shown as a frame of its size. Knows only QtGui.
#pragma once

#include "platform/richtext/pictureimage.h"
#include "platform/richtext/rtftokenizer.h"

#include <QByteArray>
#include <QTextCharFormat>

class QTextDocument;

inline constexpr int LeastPictureSide = 8; // of the picture as it is shown, in logical pixels
inline constexpr int GreatestPictureSide = 4096;

struct RtfPicture
{
    QByteArray source;
    bool hasData = false; // there is something to show
    QSizeF size;          // pixels; within bounds
};

// Reads on from behind the control word that opened the group to the group's end; the closing brace itself is left
// to be read.
RtfPicture ReadRtfPicture(RtfTokenizer& tokenizer, QByteArrayView word);

// The format of the picture's character, in a document that shows it from here on.
QTextImageFormat ToImageFormat(const RtfPicture& picture, QTextDocument& document);

// The format that a character has beside its being a picture; typed text is to take no more of one than that.
QTextCharFormat WithoutImage(QTextCharFormat format);
