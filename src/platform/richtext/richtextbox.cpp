#include "platform/richtext/richtextbox.h"

#include "platform/look/paper.h"
#include "platform/look/paperstyle.h"
#include "platform/richtext/layoutcost.h"
#include "platform/richtext/pictureimage.h"
#include "platform/richtext/rtfreader.h"
#include "platform/richtext/rtfwriter.h"
#include "platform/richtext/selectionformat.h"
#include "platform/runtime/runtimeerror.h"

#include <QAccessible>
#include <QFile>
#include <QGuiApplication>
#include <QInputMethod>
#include <QSaveFile>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>

#include <algorithm>

namespace {
constexpr double DocumentMargin = 1;
constexpr double TabStop = 48; // half an inch, as in notes of other programs
constexpr Qt::TextInteractionFlags LockedFlags = Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard;

// Notes are on paper, whatever the desktop's theme.
const QPalette& NotePalette()
{
    static const QPalette palette = [] {
        QPalette made;
        made.setColor(QPalette::Text, Qt::black);
        made.setColor(QPalette::PlaceholderText, paper::SoftInk);
        made.setColor(QPalette::Highlight, paper::Accent);
        made.setColor(QPalette::HighlightedText, Qt::white);
        // Visible while a command or window acts on the selection; in full colour while the box has the focus.
        made.setColor(QPalette::Inactive, QPalette::Highlight, paper::PaleSelection);
        made.setColor(QPalette::Inactive, QPalette::HighlightedText, Qt::black);
        return made;
    }();
    return palette;
}

bool IsBlank(QChar character)
{
    return character == u' ' || character == QChar::Nbsp || character == QChar::ObjectReplacementCharacter;
}

// Tabs and new lines in a blank box have its format; those of a note have their own.
bool IsBlankOrSpace(QChar character)
{
    return character.isSpace() || IsBlank(character);
}
} // namespace

RichTextBox::RichTextBox(QWidget* parent) : QTextEdit(parent)
{
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setPalette(NotePalette());
    viewport()->setAutoFillBackground(false);
    viewport()->setMouseTracking(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // A bar that comes and goes would lay the note out twice. It shows nothing if there is nothing to scroll.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    verticalScrollBar()->setStyle(&PaperStyle::Shared());
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, &RichTextBox::FollowScrollRange);
    FollowScrollRange();
    setTabChangesFocus(true);
    setTabStopDistance(TabStop);
    BeginSetting();
    document()->setDocumentMargin(DocumentMargin); // marks the content as changed
    EndSetting();
    ShowPictures(*document());
    BoundLayoutCost(*this);
    connect(this, &QTextEdit::textChanged, this, &RichTextBox::FollowText);
    connect(this, &QTextEdit::cursorPositionChanged, this, &RichTextBox::FollowCaret);
    connect(this, &QTextEdit::selectionChanged, this, &RichTextBox::FollowCaret);
}

QString RichTextBox::Text() const
{
    return toPlainText().remove(QChar::ObjectReplacementCharacter);
}

void RichTextBox::SetText(const QString& text)
{
    BeginSetting();
    document()->setUndoRedoEnabled(false);
    document()->clear();
    QTextCursor(document()).insertText(text);
    FormatAsTyped();
    document()->setUndoRedoEnabled(true);
    m_source.reset();
    EndSetting();
}

QByteArray RichTextBox::TextRTF() const
{
    return m_source && !Modified() ? *m_source : WriteRtf(*document());
}

void RichTextBox::SetTextRTF(const QByteArray& rtf)
{
    BeginSetting();
    ReadRtf(rtf, *document());
    if (!LooksLikeRtf(rtf)) FormatAsTyped();
    m_source = rtf;
    EndSetting();
}

// Gives plain text the format of typed text.
void RichTextBox::FormatAsTyped()
{
    QTextCursor all(document());
    all.setBlockCharFormat(m_typingFormat);
    all.select(QTextCursor::Document);
    all.setCharFormat(m_typingFormat);
}

// Keeps a large note from being laid out at once. A caret pushed to the end would do that, so there is none meanwhile.
// So would an insertion apart from the clearing, so both are one edit block.
void RichTextBox::BeginSetting()
{
    m_setting = true;
    ResetTypingFormat();
    setTextCursor(QTextCursor());
    QTextCursor(document()).beginEditBlock();
}

void RichTextBox::EndSetting()
{
    QTextCursor(document()).endEditBlock();
    KeepShapedText();
    document()->clearUndoRedoStacks();
    document()->setModified(false);
    m_blank = HoldsOnly(IsBlank);
    setTextCursor(QTextCursor(document()));
    m_setting = false;
    FollowCaret();
    Q_EMIT Change();
}

// Keeps the shaped text of the first lines for painting.
void RichTextBox::KeepShapedText()
{
    constexpr int MostShown = 64;
    QTextBlock block = document()->begin();
    for (int i = 0; i < MostShown && block.isValid(); ++i, block = block.next())
        block.layout()->setCacheEnabled(true);
}

void RichTextBox::SetLocked(bool locked)
{
    if (locked == Locked()) return;
    if (locked) CommitPreedit();
    setTextInteractionFlags(locked ? LockedFlags : Qt::TextEditorInteraction);
    setAttribute(Qt::WA_InputMethodEnabled, !locked);
    if (hasFocus()) viewport()->update(); // waves lie only over text with the caret that can be changed
    QAccessible::State changed;
    changed.readOnly = changed.editable = true;
    QAccessibleStateChangeEvent told(this, changed);
    QAccessible::updateAccessibility(&told);
}

void RichTextBox::SetModified(bool modified)
{
    // Only undo restores the bytes that were set, and then the document clears the flag itself.
    if (!modified && Modified()) m_source.reset();
    document()->setModified(modified);
}

void RichTextBox::MarkSaved(const QByteArray& rtf)
{
    document()->setModified(false);
    m_source = rtf;
}

bool RichTextBox::HoldsOnly(bool (*isFiller)(QChar)) const
{
    if (document()->blockCount() > 1 && !isFiller(QChar::ParagraphSeparator)) return false;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        for (auto at = block.begin(); !at.atEnd(); ++at)
            if (!std::ranges::all_of(at.fragment().text(), isFiller)) return false;
    return true;
}

QTextCharFormat RichTextBox::InitialFormat() const
{
    QTextCharFormat format = FormatOf(Font());
    if (m_blankColor) format.merge(ColorFormat(*m_blankColor));
    return format;
}

void RichTextBox::ResetTypingFormat()
{
    m_typingFormat = InitialFormat();
}

void RichTextBox::FollowText()
{
    if (m_setting) return;
    const bool blank = HoldsOnly(m_blank ? IsBlankOrSpace : IsBlank);
    if (blank && !m_blank) ResetTypingFormat();
    m_blank = blank;
    Q_EMIT Change();
}

void RichTextBox::FollowCaret()
{
    if (m_setting) return;
    const QTextCursor cursor = textCursor();
    if (cursor.position() == m_caret && cursor.anchor() == m_anchor) return;
    m_caret = cursor.position();
    m_anchor = cursor.anchor();
    Q_EMIT SelChange();
}

void RichTextBox::LoadFile(const QString& path)
{
    if (!QFile::exists(path)) throw RunTimeError{errors::FileNotFound, u"File not found"_s};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) errors::RaiseAccess();
    const QByteArray content = file.readAll();
    if (file.error() != QFileDevice::NoError) errors::RaiseAccess();
    SetTextRTF(content);
}

void RichTextBox::SaveFile(const QString& path)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) errors::RaiseAccess();
    const QByteArray content = TextRTF();
    // commit() replaces the file even after a short write or a failed flush.
    if (file.write(content) != content.size() || !file.flush() || !file.commit()) errors::RaiseAccess();
}

void RichTextBox::SetRightMargin(int pixels)
{
    m_rightMargin = std::max(pixels, 0);
    FollowRightMargin();
}

// Text wider than the box could not be scrolled to.
void RichTextBox::FollowRightMargin()
{
    const bool narrower = m_rightMargin > 0 && m_rightMargin < viewport()->width();
    if (narrower && lineWrapColumnOrWidth() != m_rightMargin) setLineWrapColumnOrWidth(m_rightMargin);
    setLineWrapMode(narrower ? FixedPixelWidth : WidgetWidth);
}

void RichTextBox::FollowScrollRange()
{
    const QScrollBar& bar = *verticalScrollBar();
    bar.parentWidget()->setAttribute(Qt::WA_TransparentForMouseEvents, bar.maximum() <= bar.minimum());
}

void RichTextBox::CommitPreedit()
{
    if (textCursor().block().layout()->preeditAreaText().isEmpty()) return;
    QGuiApplication::inputMethod()->commit();
    const QString left = textCursor().block().layout()->preeditAreaText();
    if (left.isEmpty()) return;
    // The input method is gone or has dropped its text.
    QInputMethodEvent event;
    event.setCommitString(left);
    inputMethodEvent(&event);
    QGuiApplication::inputMethod()->reset();
}
