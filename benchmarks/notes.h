// Notes of 300 formatted characters, the same in every run, as text runs for a cursor.
#pragma once

#include <QTextCharFormat>
#include <QTextDocument>

#include <vector>

struct NoteRun
{
    QString text;
    QTextCharFormat format;
    bool endsParagraph;
};
using Note = std::vector<NoteRun>;

inline constexpr int NoteLength = 300;

Note MakeNote(int number);
// Replaces the document's text by these notes, one below the other, without undo.
void Build(const std::vector<Note>& notes, QTextDocument& document);
QByteArray RtfOf(const Note& note);
