// A text that a person has let go of, to be had back.
#pragma once

class QTextDocument;
class RichTextBox;

// The next undo of the box shows this text in the place of its own, and the undo after that its own again. What the box
// shows, its caret, its modified flag and what could be undone before stay.
void OfferByUndo(RichTextBox& box, const QTextDocument& text);
