// Writes a document as 7-bit RTF 1.x. Reading it back gives the same document, and writing that gives the same bytes.
#pragma once

#include <QByteArray>

class QTextCursor;
class QTextDocument;

QByteArray WriteRtf(const QTextDocument& document);

// The selection only.
QByteArray WriteRtf(const QTextCursor& selection);
