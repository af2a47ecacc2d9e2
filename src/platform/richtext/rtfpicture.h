// Pictures in notes. A picture that cannot be drawn is shown as a frame of its size; its source goes along in the
// format of its character and is written back as it came. Knows only QtGui.
#pragma once

#include "platform/richtext/rtftokenizer.h"

#include <QByteArray>
#include <QTextFormat>

class QTextDocument;

// A whole group of rich text, {\pict ...} or {\object ...}, of 7-bit characters.
inline constexpr int PictureSourceProperty = QTextFormat::UserProperty + 0x500;

struct RtfPicture
{
    QByteArray source;
    bool hasData = false; // there is something to show
    QSizeF size;          // pixels; within bounds
};

// Reads on from behind the control word that opened the group to the group's end; the closing brace itself is left
// to be read.
RtfPicture ReadRtfPicture(RtfTokenizer& tokenizer, QByteArrayView word);

// The format of the picture's character, and in the document what is to be shown in its place.
QTextImageFormat ToImageFormat(const RtfPicture& picture, QTextDocument& document);
