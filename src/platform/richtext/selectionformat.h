// What the characters and paragraphs of a selection have in common. Knows only QtGui.
#pragma once

#include <QTextBlock>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextFragment>

#include <cstdint>
#include <optional>

// Calls visit(format) for the characters of the selection, once for a run of characters of one format, until it
// returns false. Pictures do not count, as they have no font.
template <typename Visit>
void VisitFormats(const QTextCursor& selection, Visit visit)
{
    int previousIndex = -1;
    const int end = selection.selectionEnd();
    for (QTextBlock block = selection.document()->findBlock(selection.selectionStart());
         block.isValid() && block.position() < end; block = block.next()) {
        for (auto i = block.begin(); !i.atEnd(); ++i) {
            const QTextFragment run = i.fragment();
            if (run.position() + run.length() <= selection.selectionStart()) continue;
            if (run.position() >= end) return;
            if (run.charFormatIndex() == std::exchange(previousIndex, run.charFormatIndex())) continue;
            const QTextCharFormat format = run.charFormat();
            if (format.objectType() == QTextFormat::NoObject && !visit(format)) return;
        }
    }
}

// The value that read(format) has for all of the selection; empty where it differs; that of caretFormat where no
// character is selected.
template <typename Read>
auto CommonValue(const QTextCursor& selection, const QTextCharFormat& caretFormat, Read read)
{
    std::optional<decltype(read(caretFormat))> common;
    bool mixed = false;
    VisitFormats(selection, [&](const QTextCharFormat& format) {
        const auto value = read(format);
        mixed = common && *common != value;
        common = value;
        return !mixed;
    });
    if (mixed)
        common.reset();
    else if (!common)
        common = read(caretFormat);
    return common;
}

// What is typed in place of the selection, or at the caret: the format of the first character that goes.
QTextCharFormat FormatToType(const QTextCursor& selection);

// One attribute of a character; what it does not say itself comes from the document's default font.
bool IsBold(const QTextCharFormat& format, const QFont& defaultFont);
bool IsItalic(const QTextCharFormat& format, const QFont& defaultFont);
bool IsUnderlined(const QTextCharFormat& format, const QFont& defaultFont);
bool IsStruckThrough(const QTextCharFormat& format, const QFont& defaultFont);
QString FontName(const QTextCharFormat& format, const QFont& defaultFont);
double FontSize(const QTextCharFormat& format, const QFont& defaultFont);     // points
std::uint32_t Color(const QTextCharFormat& format, const QFont& defaultFont); // blue, green, red; 0 for none of its own

// The other way round: the attribute alone, to be merged into characters.
template <typename Given, typename Value>
QTextCharFormat PartOf(void (QTextCharFormat::*set)(Given), const Value& value)
{
    QTextCharFormat part;
    (part.*set)(value);
    return part;
}
QTextCharFormat BoldFormat(bool bold);
QTextCharFormat NameFormat(const QString& name);
QTextCharFormat ColorFormat(std::uint32_t color);

// All that the font says, spelled out.
QTextCharFormat FormatOf(const QFont& font);

// Gives each run of characters from start to end its whole format over the base, sizes in points: pasted text may say
// sizes in pixels or relative ones, over which a size in points that is set later would not count. Joins the step of
// undo before it.
void SpellOutFormats(QTextDocument& document, int start, int end, const QTextCharFormat& base);
