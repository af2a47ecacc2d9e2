// Walks over the notes of an export, and over the lines and runs of a note. All writers share it.
#pragma once

#include "exchange/extract.h"
#include "platform/engine/longwork.h"
#include "platform/richtext/rtfreader.h"
#include "platform/richtext/selectionformat.h"

#include <QFont>
#include <QTextDocument>

#include <functional>
#include <vector>

// The font of a text without a form of its own. Sizes are relative to it.
inline QFont NoteFont()
{
    return QFont(u"Arial"_s, 8);
}

// Calls write(note, document) for each note, and tells longwork.
template <typename Write>
void ForEachNote(const Extract& extract, Write write)
{
    QTextDocument document;
    document.setUndoRedoEnabled(false);
    document.setDefaultFont(NoteFont());
    qint64 done = 0;
    for (const ExtractedNote& note : extract.notes) {
        ReadRtf(note.rtf, document);
        write(note, document);
        longwork::Reached(++done, static_cast<qint64>(extract.notes.size()));
    }
}

// The note's lines without its pictures.
inline QString TextOf(const QTextDocument& note)
{
    return note.toPlainText().remove(QChar::ObjectReplacementCharacter);
}

// The styles that files of text can show.
struct NoteStyle
{
    QChar tag; // of HTML
    QLatin1StringView markdown;
    bool (*isSet)(const QTextCharFormat& format, const QFont& font);
};
inline constexpr NoteStyle NoteStyles[] = {
    {u'b', "**"_L1, IsBold}, {u'i', "*"_L1, IsItalic}, {u's', "~~"_L1, IsStruckThrough}, {u'u', {}, IsUnderlined}};

// Text of one form, or a picture.
struct NoteRun
{
    QString text; // of a picture empty
    QString form;
    QTextCharFormat picture; // of a text no image format
};
using NoteLine = std::vector<NoteRun>;

// The lines of a paragraph. A run is as long as formOf(format) stays the same.
std::vector<NoteLine> LinesOf(const QTextBlock& paragraph,
                              const std::function<QString(const QTextCharFormat& format)>& formOf);
