#include "exchange/icalendarentry.h"

#include "platform/richtext/rtfformat.h"
#include "platform/richtext/rtfreader.h"

#include <QFont>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace {
// True if there were any.
bool RemovePictures(QTextDocument& note)
{
    const QString picture(QChar::ObjectReplacementCharacter);
    QTextCursor found = note.find(picture);
    const bool hadSome = !found.isNull();
    for (; !found.isNull(); found = note.find(picture, found))
        found.removeSelectedText();
    return hadSome;
}

// In any font.
bool IsPlain(const QTextCharFormat& format, const QFont& font)
{
    constexpr QRgb Black = 0xff000000;
    RtfCharacter character = ToRtfCharacter(format, font);
    character.halfPoints = RtfCharacter::DefaultHalfPoints;
    if (character.color == Black) character.color = 0;
    return character == RtfCharacter() && !format.isAnchor();
}

// Said or not, text goes from left to right.
bool IsUsual(const QTextBlock& paragraph)
{
    RtfParagraph form = ToRtfParagraph(paragraph.blockFormat());
    if (paragraph.textDirection() == Qt::LeftToRight) {
        form.direction = Qt::LayoutDirectionAuto;
        if (form.alignment == Qt::AlignLeft) form.alignment = {};
    }
    return form == RtfParagraph();
}

// One font throughout is no form.
bool HasForm(const QTextDocument& note)
{
    const QFont font = note.defaultFont();
    std::optional<QFont> noteFont;
    for (QTextBlock block = note.begin(); block.isValid(); block = block.next()) {
        if (!IsUsual(block)) return true;
        for (auto run = block.begin(); !run.atEnd(); ++run) {
            const QTextCharFormat format = run.fragment().charFormat();
            if (!noteFont) noteFont = format.font();
            if (!IsPlain(format, font) || format.font() != *noteFont) return true;
        }
    }
    return false;
}

QString WithoutBlankEnd(QString text)
{
    while (!text.isEmpty() && text.back().isSpace())
        text.chop(1);
    return text;
}
} // namespace

EntryText TextOfEntry(const QByteArray& rtf, const QString& above)
{
    QTextDocument note;
    note.setUndoRedoEnabled(false);
    // Not the desktop's font, which would change the form.
    note.setDefaultFont(QFont(NamelessFamily.toString(), RtfCharacter::DefaultHalfPoints / 2));
    ReadRtf(rtf, note);
    EntryText text;
    const bool hadPictures = RemovePictures(note);
    text.summary = note.toPlainText().trimmed().section(u'\n', 0, 0).trimmed();
    text.isBlank = text.summary.isEmpty() && !hadPictures;
    if (!above.isEmpty()) QTextCursor(&note).insertText(above + u'\n');
    text.description = WithoutBlankEnd(note.toPlainText());
    if (HasForm(note)) text.html = note.toHtml();
    return text;
}
