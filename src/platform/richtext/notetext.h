// The text that a stored note shows, without a document: for a search through all notes of a planner.
#pragma once

#include <QByteArrayView>
#include <QString>

// As a document of the note has it, with a QChar::ObjectReplacementCharacter for a picture. Every line but the last
// ends with '\n'.
QString ShownText(QByteArrayView stored);
