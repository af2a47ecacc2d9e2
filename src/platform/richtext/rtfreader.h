// Reads RTF into a document. Never fails: broken, truncated and unknown parts are skipped. Depth, sizes and counts are
// bounded, so no input can hang the program or exhaust memory. Knows only QtGui.
#pragma once

#include <QByteArrayView>
#include <QString>

class QTextCursor;
class QTextDocument;

// Replaces the document's content. All characters get explicit formats, so the default font does not matter; plain text
// is inserted in the default font. Clears the undo stack and the modified flag.
void ReadRtf(QByteArrayView rtf, QTextDocument& document);

// Replaces the cursor's selection as one undo step. The paragraph around the insertion keeps its format, except on a
// side that is empty.
void InsertRtf(QByteArrayView rtf, QTextCursor& cursor);

// Whether the text starts with an RTF header. Leading blanks and NUL bytes are ignored.
bool LooksLikeRtf(QByteArrayView text);

// Decodes plain text: UTF-8, else code page 1252. NUL bytes are removed.
QString PlainNote(QByteArrayView text);
