// The text of a recurring event, to be put into notes and taken out again. Takes and returns rich text; needs no box.
// The event is parsed once for all notes.
#pragma once

#include <QByteArray>
#include <QString>
#include <QTextCharFormat>
#include <QTextDocument>
#include <QTextDocumentFragment>

#include <optional>

class EventText
{
public:
    // Plain text gets the format plain.
    EventText(const QByteArray& rtf, const QTextCharFormat& plain);

    const QByteArray& Rtf() const { return m_rtf; }
    bool IsEmpty() const { return m_isEmpty; } // a picture alone is not a text

    // The note, a line break, then the event with its format.
    QByteArray AppendedTo(const QByteArray& note);

    // The note without the first match of the event's text: whole words, same letter case, same paragraphs. Pictures of
    // the event go with it. Empty if there is no match.
    std::optional<QByteArray> TakenOutOf(const QByteArray& note);

private:
    void ReadNote(const QByteArray& note);
    QTextCursor Find(const QStringList& paragraphs) const;
    QTextCursor FindInNote() const;

    QByteArray m_rtf;
    QTextCharFormat m_plain;
    QTextDocument m_event;
    QTextDocument m_note; // the note in work
    QTextDocumentFragment m_fragment;
    bool m_isEmpty = true;
    QStringList m_paragraphs; // the searched text with pictures and line breaks
    QStringList m_withoutPictures;
};
