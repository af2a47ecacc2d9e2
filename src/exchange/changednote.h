// The note of a day while an import adds texts to it and takes former ones out, as whole lines.
#pragma once

#include <QByteArray>
#include <QString>
#include <QTextDocument>

QString LinesOfNote(const QByteArray& rtf); // without form; a picture is a character

class ChangedNote
{
public:
    explicit ChangedNote(const QByteArray& stored);

    // Whether a text with these lines stands there, once for each equal text that asks. Pictures beside a text and
    // blanks at the end of a line do not count, since other programs drop them; nor do lines that were found for
    // another text.
    bool Finds(const QString& lines, const QByteArray& rtf);
    void Add(const QByteArray& rtf); // below the others
    // Takes the first such lines out. False if they are not there as whole lines.
    bool TakeOut(const QString& lines);

    QByteArray Rtf() const; // empty if no text is left

private:
    QTextDocument m_note, m_addition;
    QString m_free; // the lines that count and that no text has found as its own
    bool m_isEmpty;
};
