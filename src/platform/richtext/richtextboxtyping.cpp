// The format of typed text, and what follows from typing by itself.
#include "platform/richtext/layoutcost.h"
#include "platform/richtext/linklook.h"
#include "platform/richtext/listtyping.h"
#include "platform/richtext/notelinks.h"
#include "platform/richtext/paragraphdirection.h"
#include "platform/richtext/richtextbox.h"
#include "platform/richtext/selectionformat.h"

#include <QKeyEvent>
#include <QTextBlock>

#include <optional>

namespace {
bool TypesCharacter(const QKeyEvent& event)
{
    const QString text = event.text();
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::ShiftModifier;
    return !text.isEmpty() && modifiers != Qt::ControlModifier &&
           (text.front().isPrint() || text.front().isSurrogate());
}
} // namespace

// A click discards the caret's format, so in a blank box it is set before each change. Text typed beside a link does
// not belong to it.
void RichTextBox::UseTypingFormat()
{
    const QTextCursor cursor = textCursor();
    if (cursor.hasSelection()) return;
    if (m_blank || (cursor.charFormat().isAnchor() && !IsTypedIntoLink(cursor))) setCurrentCharFormat(TypedFormat());
}

QTextCharFormat RichTextBox::TypedFormat() const
{
    return m_blank ? m_typingFormat : FormatToType(textCursor());
}

// Text that the toolkit would format differently: a second Return resets all formats, and text typed over a selection
// takes the format before the caret. The address of a link and the direction of an item follow within the step of undo,
// which the toolkit's typing is none of.
QString RichTextBox::TypedInstead(QKeyEvent& event) const
{
    if (Locked()) return {};
    if (event.matches(QKeySequence::InsertParagraphSeparator)) return QChar(QChar::ParagraphSeparator);
    const QTextCursor caret = textCursor();
    if (!caret.hasSelection() && !IsTypedIntoLink(caret) && !KeptDirection::IsNeeded(caret)) return {};
    if (event.matches(QKeySequence::InsertLineSeparator)) return QChar(QChar::LineSeparator);
    return TypesCharacter(event) ? event.text() : QString();
}

void RichTextBox::Type(const QString& text)
{
    const QTextCharFormat format = TypedFormat();
    QTextCursor cursor = textCursor();
    std::optional<WithoutLines> noLines;
    if (cursor.hasSelection()) noLines.emplace(*document());
    const bool endsLine = text.front() == QChar::ParagraphSeparator || text.front() == QChar::LineSeparator;
    IsTypedOn(cursor) && !endsLine ? cursor.joinPreviousEditBlock() : cursor.beginEditBlock();
    cursor.removeSelectedText();
    // This may leave an empty paragraph behind.
    if (cursor.atBlockStart() && text.front() == QChar::ParagraphSeparator) cursor.setBlockCharFormat(format);
    cursor.insertText(text, format);
    cursor.endEditBlock();
    noLines.reset();
    setTextCursor(cursor);
    ensureCursorVisible();
}

// The toolkit deletes a single letter without a step that the link's new address or the item's direction could join.
bool RichTextBox::DeleteLetter(QKeyEvent& event)
{
    QTextCursor caret = textCursor();
    const bool isBack = event.key() == Qt::Key_Backspace && !(event.modifiers() & ~Qt::ShiftModifier);
    if (Locked() || caret.hasSelection() || !(isBack || event.matches(QKeySequence::Delete))) return false;
    if (!LinkAt(*document(), caret.position() - (isBack ? 1 : 0)) && !KeptDirection::IsNeeded(caret)) return false;
    caret.beginEditBlock();
    isBack ? caret.deletePreviousChar() : caret.deleteChar();
    caret.endEditBlock();
    setTextCursor(caret);
    ensureCursorVisible();
    return true;
}

void RichTextBox::RememberTyped(const QKeyEvent& event)
{
    if (TypesCharacter(event)) m_typed = {textCursor().position(), document()->revision()};
}

// Letters typed into a link one after the other are one step of undo, as those that the toolkit types are.
bool RichTextBox::IsTypedOn(const QTextCursor& caret) const
{
    return Modified() && !caret.hasSelection() && m_typed == std::pair(caret.position(), document()->revision());
}

// For a paragraph whose text has been deleted. A blank box has its own format.
void RichTextBox::KeepFormat(const QTextCharFormat& format)
{
    QTextCursor cursor = textCursor();
    if (m_blank || cursor.block().length() > 1 || cursor.blockCharFormat() == format) return;
    cursor.joinPreviousEditBlock();
    cursor.setBlockCharFormat(format);
    cursor.endEditBlock();
}

void RichTextBox::FormatCommitted(int start, qsizetype length, const QTextCharFormat& format)
{
    if (length == 0) return;
    QTextCursor committed(document());
    committed.joinPreviousEditBlock();
    committed.setPosition(start);
    committed.setPosition(start + static_cast<int>(length), QTextCursor::KeepAnchor);
    committed.setCharFormat(format);
    committed.endEditBlock();
}

// The toolkit discards the caret's format when an input method commits, and a selection when the method begins to show
// text. The link there may have another target by now.
void RichTextBox::KeepTypingFormat(const QTextCharFormat& format)
{
    if (textCursor().hasSelection()) return;
    const auto link = LinkAt(*document(), textCursor().position() - 1);
    setCurrentCharFormat(format.isAnchor() && link ? LinkFormat(format, link->target) : WithoutLink(format));
}

// Return on an item without text ends a list, and Backspace before an item's text takes its mark away.
bool RichTextBox::EndListItem(const QKeyEvent& event)
{
    const bool isReturn = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    const bool isMeant = isReturn || event.key() == Qt::Key_Backspace;
    if (Locked() || !isMeant || event.modifiers() & ~Qt::KeypadModifier) return false;
    QTextCursor caret = textCursor();
    if (!EndItem(caret, isReturn ? Item::Empty : Item::Any)) return false;
    setTextCursor(caret);
    ensureCursorVisible();
    return true;
}

// A typed blank or end of a line ends a word, which may be an address.
void RichTextBox::FollowTypedEnd()
{
    QTextCursor caret = textCursor();
    const int end = caret.position() - 1;
    if (end < 0 || !document()->characterAt(end).isSpace()) return;
    if (end > 0) MakeLinks(caret, end - 1, end);
    if (document()->characterAt(end) != QChar::ParagraphSeparator) return;
    ContinueList(caret);
    setTextCursor(caret);
    ensureCursorVisible();
}

void RichTextBox::SetTypedDirection(Qt::LayoutDirection direction)
{
    if (!Locked() && AdmitsKey(u"\b"_s)) SetDirection(textCursor(), direction);
}
