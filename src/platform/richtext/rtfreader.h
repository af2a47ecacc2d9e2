// Rich text format into a document. Never fails: what is broken, cut off or unknown is passed over, and depth, sizes
// and counts are bounded, so that no input can hang the program or eat its memory. Knows only QtGui.
#pragma once

#include <QByteArrayView>
#include <QString>

class QTextCursor;
class QTextDocument;

// Replaces the content of the document. Characters carry their formats explicitly (family, size, colour where one is
// given), so that the document's default font plays no part. Text that is no rich text comes in as it is, in that font.
// Clears the undo stack and the modified flag.
void ReadRtf(QByteArrayView rtf, QTextDocument& document);

// Inserts at the cursor, in place of its selection, as one step of undo. The paragraph that is inserted into keeps its
// format on both sides of the insertion, unless there is nothing on that side.
void InsertRtf(QByteArrayView rtf, QTextCursor& cursor);

// Whether a text begins as rich text does, blanks and NUL bytes aside.
bool LooksLikeRtf(QByteArrayView text);

// A text that is no rich text: UTF-8, or else of the code page that rich text begins with; without NUL bytes.
QString PlainNote(QByteArrayView text);
