// The context menu of a note in its own window: clipboard and styles.
#pragma once

class QMenu;
class RichTextBox;

// The menu opens at a right click and belongs to the box. Its shortcuts work while it is closed. form names the window
// in the error log: "ZoomBoxForm".
QMenu* AddNoteMenu(RichTextBox& box, const char* form);
