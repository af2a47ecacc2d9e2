// Puts one note below another.
#pragma once

#include <QByteArray>

class QTextBlock;
class QTextDocument;
class QTextDocumentFragment;

// A line break and the addition, as it is formatted; first is the addition's first paragraph.
void AppendBelow(QTextDocument& note, const QTextBlock& first, const QTextDocumentFragment& addition);

// Both notes, rich text or plain, as one.
QByteArray JoinedNotes(const QByteArray& upper, const QByteArray& lower);
