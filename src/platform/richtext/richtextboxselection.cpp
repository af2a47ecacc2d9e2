#include "platform/richtext/linklook.h"
#include "platform/richtext/notelinks.h"
#include "platform/richtext/richtextbox.h"
#include "platform/richtext/rtfformat.h"
#include "platform/richtext/selectionformat.h"
#include "platform/runtime/runtimeerror.h"

#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>
#include <array>

namespace {
constexpr double LargestFont = RtfCharacter::MaximumHalfPoints / 2.0; // points
constexpr std::array<Qt::Alignment, 3> Alignments{Qt::AlignLeft | Qt::AlignAbsolute, Qt::AlignRight | Qt::AlignAbsolute,
                                                  Qt::AlignHCenter};

[[noreturn]] void RaiseInvalidValue()
{
    throw RunTimeError{errors::InvalidPropertyValue, u"Invalid property value"_s};
}

void CheckFontSize(double points)
{
    if (!(points > 0 && points <= LargestFont)) RaiseInvalidValue();
}

// An empty paragraph has a format for text typed there. Merging into a selection that begins there does not reach it.
void MergeIntoEmptyLine(const QTextCursor& selection, const QTextCharFormat& part)
{
    QTextCursor start(selection.document());
    start.setPosition(selection.selectionStart());
    if (start.block().length() == 1) start.mergeBlockCharFormat(part);
}
} // namespace

void RichTextBox::SetBlankFormat(const QFont& font, std::uint32_t color)
{
    if (font != Font()) document()->setDefaultFont(font);
    m_blankColor = color;
    if (m_blank && Text().remove(u' ').isEmpty()) ResetTypingFormat();
}

void RichTextBox::SetFontName(const QString& name)
{
    if (name.isEmpty()) return;
    QFont font = Font();
    font.setFamily(name);
    ChangeFont(font, NameFormat(name));
}

void RichTextBox::SetFontSize(double points)
{
    CheckFontSize(points);
    QFont font = Font();
    font.setPointSizeF(points);
    ChangeFont(font, PartOf(&QTextCharFormat::setFontPointSize, points));
}

void RichTextBox::ChangeFont(const QFont& font, const QTextCharFormat& part)
{
    if (font != Font()) document()->setDefaultFont(font);
    if (m_blank) return m_typingFormat.merge(part);
    QTextCursor all(document());
    MergeIntoEmptyLine(all, part);
    all.select(QTextCursor::Document);
    all.mergeCharFormat(part);
    document()->setModified(true);
    if (!textCursor().hasSelection()) mergeCurrentCharFormat(part);
}

void RichTextBox::MergeIntoSelection(const QTextCharFormat& part)
{
    if (m_blank)
        m_typingFormat.merge(part);
    else
        MergeIntoEmptyLine(textCursor(), part);
    QTextCursor selection = textCursor();
    if (!selection.hasSelection() && selection.charFormat().isAnchor()) {
        QTextCharFormat format = WithoutLinkLook(selection.charFormat());
        format.merge(part);
        return setCurrentCharFormat(LinkFormat(format, format.anchorHref()));
    }
    selection.beginEditBlock();
    HideLinkLook(selection);
    mergeCurrentCharFormat(part);
    ShowLinkLook(selection);
    selection.endEditBlock();
}

void RichTextBox::SetSelFontName(const QString& name)
{
    if (!name.isEmpty()) MergeIntoSelection(NameFormat(name));
}

void RichTextBox::SetSelFontSize(double points)
{
    CheckFontSize(points);
    MergeIntoSelection(PartOf(&QTextCharFormat::setFontPointSize, points));
}

void RichTextBox::SetSelColor(std::uint32_t color)
{
    if (m_blank) m_blankColor = color;
    MergeIntoSelection(ColorFormat(color));
}

void RichTextBox::SetSelAlignment(int alignment)
{
    if (alignment < 0 || alignment >= int(Alignments.size())) RaiseInvalidValue();
    QTextBlockFormat format;
    format.setAlignment(Alignments[std::size_t(alignment)]);
    QTextCursor cursor = textCursor();
    cursor.mergeBlockFormat(format);
}

int RichTextBox::SelLength() const
{
    const QTextCursor cursor = textCursor();
    return cursor.selectionEnd() - cursor.selectionStart();
}

void RichTextBox::SetSelStart(int start)
{
    QTextCursor cursor = textCursor();
    cursor.setPosition(std::clamp(start, 0, document()->characterCount() - 1));
    setTextCursor(cursor);
}

void RichTextBox::SetSelLength(int length)
{
    QTextCursor cursor = textCursor();
    const int start = cursor.selectionStart();
    const int rest = document()->characterCount() - 1 - start;
    cursor.setPosition(start);
    cursor.setPosition(start + std::clamp(length, 0, rest), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

void RichTextBox::ShowBeginning()
{
    // The dragged text will be removed by its selection.
    m_leftInDrag = m_dragging;
    if (m_dragging) return;
    QTextCursor caret = textCursor();
    caret.clearSelection();
    setTextCursor(caret);
    verticalScrollBar()->setValue(0);
}

void RichTextBox::Replace(int start, int length, const QString& by)
{
    if (Locked() || !AdmitsPaste()) return;
    QTextCursor replaced(document());
    replaced.setPosition(start + 1);
    const QTextCharFormat format = replaced.charFormat();
    replaced.setPosition(start);
    replaced.setPosition(start + length, QTextCursor::KeepAnchor);
    FollowedLinks links(replaced);
    replaced.insertText(by, format);
    links.FollowText();
}
