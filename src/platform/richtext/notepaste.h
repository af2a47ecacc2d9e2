// What others put on the clipboard or let fall, taken into a note in the best form that it comes in. Knows only QtGui.
#pragma once

#include "platform/richtext/notepicture.h"

class QMimeData;
class QTextCharFormat;

bool CanPaste(const QMimeData& data);

// In place of the selection, in one step of undo; the cursor ends behind it. Rich text comes before HTML, images, image
// files of this machine, and text, which takes the format at the cursor. What is damaged or beyond bounds gives way to
// the next form. What HTML says nothing of is as in the initial format. False: nothing was to be had.
bool Paste(const QMimeData& data, QTextCursor& cursor, const QTextCharFormat& initial, const PictureFit& fit);
