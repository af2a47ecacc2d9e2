// Formats that the characters of a selection share. Knows only QtGui.
#pragma once

#include <QTextBlock>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextFragment>

#include <cstdint>
#include <optional>

// Calls visit(format) for each run of characters with the same format, until it returns false. Pictures are skipped,
// since they have no font.
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

// The common value of read(format) in the selection; empty if it differs. Without a selection, that of caretFormat.
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

// The format for text that replaces the selection: that of its first character. Without a selection, that of the caret.
QTextCharFormat FormatToType(const QTextCursor& selection);

// One attribute of a character. If the format does not set it, the default font does.
bool IsBold(const QTextCharFormat& format, const QFont& defaultFont);
bool IsItalic(const QTextCharFormat& format, const QFont& defaultFont);
bool IsUnderlined(const QTextCharFormat& format, const QFont& defaultFont);
bool IsStruckThrough(const QTextCharFormat& format, const QFont& defaultFont);
QString FontName(const QTextCharFormat& format, const QFont& defaultFont);
double FontSize(const QTextCharFormat& format, const QFont& defaultFont);     // points
std::uint32_t Color(const QTextCharFormat& format, const QFont& defaultFont); // blue, green, red; 0 if not set

// A format that sets only this attribute, to be merged.
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

// A format that sets all attributes of the font.
QTextCharFormat FormatOf(const QFont& font);

// Completes the formats from start to end by those of base, with sizes in points. Pasted text may have pixel or
// relative sizes, which would override a point size set later. Joins the previous undo step.
void SpellOutFormats(QTextDocument& document, int start, int end, const QTextCharFormat& base);
