// The text of a recurring event on its way into notes and out of them again: rich text in, rich text out, without a
// box. The event is parsed once for all the notes of a run.
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
    // Notes and events that are no rich text take the format of plain text.
    EventText(const QByteArray& rtf, const QTextCharFormat& plain);

    const QByteArray& Rtf() const { return m_rtf; }
    bool IsEmpty() const { return m_isEmpty; } // a picture alone is no text

    // The note, a line break, and the event as it is formatted.
    QByteArray AppendedTo(const QByteArray& note);

    // The note without the first place where the event's text stands as whole words, in the same letter case and in as
    // many paragraphs; pictures that belong to the event go with it. Empty where the text does not stand in the note.
    std::optional<QByteArray> TakenOutOf(const QByteArray& note);

private:
    void ReadNote(const QByteArray& note);
    QTextCursor Find(const QStringList& paragraphs) const;
    QTextCursor FindInNote() const;

    QByteArray m_rtf;
    QTextCharFormat m_plain;
    QTextDocument m_event;
    QTextDocument m_note; // the one that is being changed
    QTextDocumentFragment m_fragment;
    bool m_isEmpty = true;
    QStringList m_paragraphs; // what is searched for, pictures and line breaks included
    QStringList m_withoutPictures;
};
