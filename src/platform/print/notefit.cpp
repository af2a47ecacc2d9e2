#include "platform/print/notefit.h"

#include "platform/richtext/layoutcost.h"
#include "platform/richtext/pictureimage.h"
#include "platform/richtext/rtfpicture.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPaintDevice>
#include <QScreen>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace {
constexpr QChar Ellipsis(0x2026);
constexpr double Rounding = 0.5;     // dots
constexpr int MostLetters = 200'000; // more than a page holds; line positions overflow at some ten million dots

// The position of the first line that does not fit, the very first line excepted; -1 if all fit.
int FirstHidden(const QTextDocument& note, double height)
{
    const QAbstractTextDocumentLayout& layout = *note.documentLayout();
    for (QTextBlock block = note.begin(); block.isValid(); block = block.next()) {
        const double top = layout.blockBoundingRect(block).top();
        const QTextLayout& lines = *block.layout();
        for (int i = 0; i < lines.lineCount(); ++i) {
            const QTextLine line = lines.lineAt(i);
            const bool isFirst = block == note.begin() && i == 0;
            if (!isFirst && top + line.y() + line.height() > height + Rounding)
                return block.position() + line.textStart();
        }
    }
    return -1;
}

bool IsBlankFrom(const QTextDocument& note, int position)
{
    for (int i = position; i < note.characterCount() - 1; ++i) {
        if (!note.characterAt(i).isSpace()) return false;
    }
    return true;
}

void RemoveFrom(QTextCursor& end, int position)
{
    end.setPosition(position);
    end.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    end.removeSelectedText();
}

// Only text precedes an ellipsis.
void RemoveTrailingBlanks(QTextCursor& end)
{
    while (end.position() > 0 && end.document()->characterAt(end.position() - 1).isSpace())
        end.deletePreviousChar();
}

// Makes room for an ellipsis in the last line, but keeps the first letter.
void Shorten(QTextDocument& note, int firstHidden, double height)
{
    QTextCursor end(&note);
    {
        const WithoutLines noLines(note);
        RemoveFrom(end, firstHidden);
    }
    RemoveTrailingBlanks(end);
    const QTextCharFormat format = WithoutImage(end.charFormat());
    end.insertText(Ellipsis, format);
    while (FirstHidden(note, height) >= 0 && end.position() > 2) {
        end.deletePreviousChar();
        end.deletePreviousChar();
        RemoveTrailingBlanks(end);
        end.insertText(Ellipsis, format);
    }
}

// Scales pictures to the box, with room for an ellipsis beside them.
void ShrinkPictures(QTextDocument& note, const QSizeF& most)
{
    for (QTextBlock block = note.begin(); block.isValid(); block = block.next()) {
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            QTextImageFormat picture = at.fragment().charFormat().toImageFormat();
            if (!picture.isValid() || picture.width() <= 0 || picture.height() <= 0) continue;
            const double scale = std::min(most.width() / picture.width(), most.height() / picture.height());
            if (scale >= 1) continue;
            picture.setWidth(picture.width() * scale);
            picture.setHeight(picture.height() * scale);
            QTextCursor cursor(&note);
            cursor.setPosition(at.fragment().position());
            cursor.setPosition(at.fragment().position() + at.fragment().length(), QTextCursor::KeepAnchor);
            cursor.setCharFormat(picture);
        }
    }
}
} // namespace

void FitNote(QTextDocument& note, const QSizeF& box, QPaintDevice& device)
{
    note.setUndoRedoEnabled(false);
    if (QTextCursor end(&note); note.characterCount() > MostLetters) RemoveFrom(end, MostLetters);
    note.setDocumentMargin(0);
    ShowPictures(note);
    note.documentLayout()->setPaintDevice(&device);
    // Picture sizes are in screen dots.
    const double dots = device.logicalDpiY() / QGuiApplication::primaryScreen()->logicalDotsPerInchY();
    const double ellipsis = QFontMetricsF(note.defaultFont(), &device).horizontalAdvance(Ellipsis);
    ShrinkPictures(note, QSizeF(box.width() - ellipsis, box.height()) / dots);
    note.setTextWidth(box.width());
    const int firstHidden = FirstHidden(note, box.height());
    if (firstHidden < 0 || IsBlankFrom(note, firstHidden)) return;
    Shorten(note, firstHidden, box.height());
}
