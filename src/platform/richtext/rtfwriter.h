// A document as rich text: 7-bit, RTF 1.x, as other programs read it. Reading it back gives the same document, and
// writing that gives the same bytes.
#pragma once

#include <QByteArray>

class QTextCursor;
class QTextDocument;

QByteArray WriteRtf(const QTextDocument& document);

// The cursor's selection alone, for the clipboard.
QByteArray WriteRtf(const QTextCursor& selection);
