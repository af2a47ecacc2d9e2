// Inserts clipboard and drop data into a note, in the best format offered. Knows only QtGui.
#pragma once

#include "platform/richtext/notepicture.h"

class QMimeData;
class QTextCharFormat;

bool CanPaste(const QMimeData& data);

// Replaces the selection as one undo step; the cursor ends behind the insertion. Rich text precedes HTML, images, local
// image files and text, which takes the format at the cursor. Damaged or oversized data gives way to the next format.
// Formats that HTML leaves open come from initial. False: nothing usable was offered.
bool Paste(const QMimeData& data, QTextCursor& cursor, const QTextCharFormat& initial, const PictureFit& fit);
