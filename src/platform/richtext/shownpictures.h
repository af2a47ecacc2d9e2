// Draws the pictures of a document's notes: decoded when they come into view, in the pixels of the screen they are on.
// Knows only QtGui.
#pragma once

class QTextDocument;

// Shows the document's pictures, however it came by them; an image that is no picture of a note is a frame, and is
// never looked for elsewhere. Boxes and documents that rich text was read into do so already; a clone of one does not.
void ShowPictures(QTextDocument& document);
