#include "exchange/notewalk.h"
#include "exchange/writers.h"
#include "platform/richtext/notejoin.h"
#include "platform/richtext/rtfwriter.h"

#include <QTextDocumentFragment>

namespace {
// Below what is there, or as the document's first paragraph.
void AddHeading(QTextCursor& end, const QString& heading)
{
    constexpr double Gap = 12; // pixels
    QTextBlockFormat paragraph;
    QTextCharFormat character = FormatOf(NoteFont());
    character.setFontWeight(QFont::Bold);
    if (end.atStart()) {
        end.setBlockCharFormat(character);
    } else {
        paragraph.setTopMargin(Gap);
        end.insertBlock(paragraph, character);
    }
    end.insertText(heading, character);
}
} // namespace

QByteArray WriteRichText(const Extract& extract, const AddPicture&)
{
    QTextDocument whole;
    whole.setUndoRedoEnabled(false);
    whole.setDefaultFont(NoteFont());
    QTextCursor end(&whole);
    end.beginEditBlock();
    ForEachNote(extract, [&](const ExtractedNote& note, const QTextDocument& document) {
        AddHeading(end, HeadingOf(note));
        AppendBelow(whole, document.firstBlock(), QTextDocumentFragment(&document));
    });
    end.endEditBlock();
    return WriteRtf(whole);
}
