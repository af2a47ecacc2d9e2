#include "notes.h"

#include "platform/richtext/rtfwriter.h"

#include <QTextCursor>

#include <array>
#include <random>

namespace {
constexpr int RunsPerParagraph = 3, Paragraphs = 3;

constexpr std::array<const char*, 20> Words = {"meeting", "call",  "Dr.",   "report",   "at 10:30", "with",  "the",
                                               "lunch",   "train", "paper", "send",     "Monday",   "and",   "to",
                                               "bring",   "house", "of",    "birthday", "review",   "garden"};

QTextCharFormat Plain()
{
    QTextCharFormat format;
    format.setFontFamilies({u"Arial"_s});
    format.setFontPointSize(8);
    return format;
}

// One format for each run of a paragraph.
const QTextCharFormat& FormatOfRun(int run)
{
    static const auto formats = [] {
        std::array<QTextCharFormat, RunsPerParagraph> made{Plain(), Plain(), Plain()};
        made[1].setFontWeight(QFont::Bold);
        made[2].setFontItalic(true);
        made[2].setForeground(QColor(Qt::blue));
        return made;
    }();
    return formats[std::size_t(run)];
}

QString Text(std::minstd_rand& random, int length)
{
    QString text;
    while (text.size() < length)
        text += QLatin1StringView(Words[random() % Words.size()]) + u' ';
    return text.first(length);
}

void Insert(const Note& note, QTextCursor& cursor)
{
    for (const NoteRun& run : note) {
        cursor.insertText(run.text, run.format);
        if (run.endsParagraph) cursor.insertBlock(QTextBlockFormat(), run.format);
    }
}
} // namespace

Note MakeNote(int number)
{
    std::minstd_rand random(unsigned(number) + 1);
    Note note;
    constexpr int Runs = RunsPerParagraph * Paragraphs;
    for (int run = 0; run < Runs; ++run) {
        const int length = NoteLength * (run + 1) / Runs - NoteLength * run / Runs;
        const int place = run % RunsPerParagraph;
        note.push_back({Text(random, length), FormatOfRun(place), place == RunsPerParagraph - 1 && run < Runs - 1});
    }
    return note;
}

// One edit block, or a view would lay the note out twice.
void Build(const std::vector<Note>& notes, QTextDocument& document)
{
    document.setUndoRedoEnabled(false);
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    document.clear();
    cursor = QTextCursor(&document);
    for (const Note& note : notes) {
        if (&note != &notes.front()) cursor.insertBlock();
        Insert(note, cursor);
    }
    cursor.endEditBlock();
}

QByteArray RtfOf(const Note& note)
{
    QTextDocument document;
    Build({note}, document);
    return WriteRtf(document);
}
