// Stored rich text as the search sees it: codes stay, but coded characters are decoded. So a word is found as it is
// typed, whichever program wrote the note. Knows only QtGui.
#pragma once

#include "platform/engine/textview.h"

// \'hh is decoded by the code page of its font; \u with its fallback and words such as \bullet become their characters.
// Codes of ASCII characters stay, so a run of ASCII is the same run in the bytes. Plain text is read as RichTextBox
// reads it.
extern const TextView RtfTextView;
