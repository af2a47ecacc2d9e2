// Appends one note to another.
#pragma once

#include <QByteArray>

class QTextBlock;
class QTextDocument;
class QTextDocumentFragment;

// Appends the addition as a new paragraph, with its own formats; first is its first paragraph.
void AppendBelow(QTextDocument& note, const QTextBlock& first, const QTextDocumentFragment& addition);

// The notes may be rich text or plain.
QByteArray JoinedNotes(const QByteArray& upper, const QByteArray& lower);
