// The right-button menu of a note in a window of its own: clipboard and styles.
#pragma once

class QMenu;
class RichTextBox;

// Opens at a right click into the box, and belongs to it. Its keys work without the menu being open. form names the
// window in the error log: "ZoomBoxForm".
QMenu* AddNoteMenu(RichTextBox& box, const char* form);
