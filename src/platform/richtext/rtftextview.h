// Rich text as it is stored, codes and all, but with the characters that stand there in code: a word is found as a
// person types it, whichever program wrote the note. Knows only QtGui.
#pragma once

#include "platform/engine/textview.h"

// What is read: \'hh in the code page of its font, \u with its fallback and the words of signs are their characters,
// all else is as it is. Codes of ASCII characters stay, so that ASCII that stands in a row stands so in the bytes too.
// Text that is no rich text is read as the notes' boxes read it.
extern const TextView RtfTextView;
