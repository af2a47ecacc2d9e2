#include "platform/richtext/notejoin.h"

#include "platform/richtext/rtfreader.h"
#include "platform/richtext/rtfwriter.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocumentFragment>

void AppendBelow(QTextDocument& note, const QTextBlock& first, const QTextDocumentFragment& addition)
{
    QTextCursor cursor(&note);
    cursor.movePosition(QTextCursor::End);
    // Otherwise the new paragraph would take alignment and style from the note's last one.
    cursor.insertBlock(first.blockFormat(), first.charFormat());
    cursor.insertFragment(addition);
}

QByteArray JoinedNotes(const QByteArray& upper, const QByteArray& lower)
{
    QTextDocument note, addition;
    ReadRtf(upper, note);
    ReadRtf(lower, addition);
    AppendBelow(note, addition.firstBlock(), QTextDocumentFragment(&addition));
    return WriteRtf(note);
}
