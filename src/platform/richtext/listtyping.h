// Lists as a person types them: a mark, a blank and text. The mark is text, and a hanging indent lets further lines
// begin below the item's text. Knows only QtGui.
#pragma once

#include <Qt>

class QTextCursor;

// After a new paragraph was typed: if the one before is an item, continues the list with the next mark as an undo step
// of its own, and moves the caret behind it. "-", "*" and a bullet stay, numbers with a point or a bracket go up, also
// those of the items below.
void ContinueList(QTextCursor& caret);

// Makes the caret's item plain text by taking its mark and its indent away, as an undo step; the numbers below go down
// again. False, with nothing done, if the caret is not right behind the mark of an item with such an indent, or if it
// has text and must have none.
enum class Item
{
    Any,
    Empty
};
bool EndItem(QTextCursor& caret, Item item);

// An item's first letter tells its direction, but its indent belongs to a side: it keeps the one that it had before a
// change of its text. To be made before the change.
class KeptDirection
{
public:
    static bool IsNeeded(const QTextCursor& caret); // its item has no direction of its own
    explicit KeptDirection(const QTextCursor& caret);
    void Keep(QTextCursor caret) const; // where it is now; within the undo step of the change

private:
    int m_paragraph;
    Qt::LayoutDirection m_direction;
};
