// The direction of paragraphs. Without one of its own a paragraph has that of its first strong letter. Knows only
// QtGui.
#pragma once

#include "platform/richtext/rtfformat.h"

class QTextBlock;
class QTextCursor;

// Sets the direction of the selected paragraphs as one undo step. Their indents change sides, and those at a side go to
// the one where their text begins.
void SetDirection(QTextCursor selection, Qt::LayoutDirection direction);

// The format with a direction of its own, if a person has set none. While the text has the same, it is not stored.
QTextBlockFormat WithFixedDirection(QTextBlockFormat format, Qt::LayoutDirection direction);
bool HasFixedDirection(const QTextBlockFormat& format);
Qt::LayoutDirection DirectionToStore(const QTextBlock& block);

// The side where the paragraph's text begins: an index of its measures.
RtfParagraph::Measure StartOf(Qt::LayoutDirection direction);
