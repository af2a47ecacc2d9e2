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

    // Adds these lines below the others, as rich text. False if they stand there already, once for each equal text that
    // is added.
    bool Add(const QString& lines, const QByteArray& rtf);
    // Takes the first such lines out. False if they are not there as whole lines.
    bool TakeOut(const QString& lines);

    QByteArray Rtf() const; // empty if no text is left

private:
    QTextDocument m_note, m_addition;
    QString m_free; // the lines that no added text has found as its own
    bool m_isEmpty;
};
