// Offers a discarded text by undo.
#pragma once

class QTextDocument;
class RichTextBox;

void ReplaceText(QTextDocument& document, const QTextDocument& by); // as one step of undo

// The next undo of the box shows this text, the one after it the present text again. The text, the caret, the modified
// flag and older undo steps of the box stay.
void OfferByUndo(RichTextBox& box, const QTextDocument& text);
