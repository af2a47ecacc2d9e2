// What the context menu of a note offers for an unknown word.
#pragma once

class QMenu;
class QPoint;
class RichTextBox;

// Puts suggestions, "Add to Dictionary" and "Ignore" above the entries of the menu until it closes, if there is a
// marked word at this place of the screen.
void OfferCorrections(QMenu& menu, RichTextBox& box, const QPoint& globalPosition);
