#include "platform/richtext/layoutcost.h"
#include "platform/richtext/richtextbox.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QInputMethod>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>

#include <algorithm>
#include <optional>

namespace {
// A menu, a popup or another window had taken the focus and gives it back.
bool IsPassing(Qt::FocusReason reason)
{
    return reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason || reason == Qt::ActiveWindowFocusReason;
}

int ButtonNumber(Qt::MouseButton button)
{
    switch (button) {
    case Qt::LeftButton:
        return 1;
    case Qt::RightButton:
        return RichTextBox::RightButton;
    case Qt::MiddleButton:
        return 4;
    default:
        return 0;
    }
}

bool TypesTab(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Tab && event.modifiers() == Qt::ControlModifier;
}

// Their keys bring a control character along, yet they change nothing that could need a lock.
bool OnlyReads(QKeyEvent* event)
{
    return event->matches(QKeySequence::Copy) || event->matches(QKeySequence::SelectAll);
}

// A person's key that changes the text without a character of its own, such as Shift+Insert. One that the program
// posts has passed the guard of its command already.
bool ChangesSilently(QKeyEvent* event)
{
    static constexpr QKeySequence::StandardKey keys[] = {
        QKeySequence::Paste,           QKeySequence::Cut,  QKeySequence::Delete, QKeySequence::DeleteStartOfWord,
        QKeySequence::DeleteEndOfWord, QKeySequence::Undo, QKeySequence::Redo,   QKeySequence::DeleteEndOfLine};
    if (!event->spontaneous() || !event->text().isEmpty()) return false;
    return std::any_of(std::begin(keys), std::end(keys), [&](auto key) { return event->matches(key); });
}

bool TakesBack(QKeyEvent* event)
{
    return event->matches(QKeySequence::Undo) || event->matches(QKeySequence::Redo);
}

QString CharacterOf(QKeyEvent* event)
{
    if (TypesTab(*event)) return u"\t"_s;
    if (OnlyReads(event)) return {};
    return ChangesSilently(event) ? u"\b"_s : event->text();
}

// Takes away more than a letter, or brings it back.
bool ChangesMuch(QKeyEvent* event, const QTextCursor& cursor)
{
    return TakesBack(event) || (cursor.hasSelection() && !CharacterOf(event).isEmpty());
}
} // namespace

// The note's font is its own; the desktop's does not reach it.
void RichTextBox::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::ApplicationFontChange) return;
    QTextEdit::changeEvent(event);
}

// Where the scroll bar shows nothing its strip is paper like the rest, and a press there belongs to the text. What the
// text itself has refused comes this way too and ends here.
bool RichTextBox::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        m_pressedBeside = !viewport()->geometry().contains(static_cast<QMouseEvent*>(event)->position().toPoint());
        break;
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
        break;
    default:
        return QTextEdit::event(event);
    }
    if (m_pressedBeside) PassToViewport(*static_cast<QMouseEvent*>(event));
    return m_pressedBeside;
}

void RichTextBox::PassToViewport(const QMouseEvent& event)
{
    QPointF at = viewport()->mapFrom(this, event.position());
    at.setX(std::min(at.x(), viewport()->width() - 1.0));
    QMouseEvent passed(event.type(), at, event.globalPosition(), event.button(), event.buttons(), event.modifiers());
    QCoreApplication::sendEvent(viewport(), &passed);
}

void RichTextBox::resizeEvent(QResizeEvent* event)
{
    QTextEdit::resizeEvent(event);
    FollowRightMargin();
    // Lines wrap anew, and the one that is being typed must not leave the box.
    if (hasFocus()) ensureCursorVisible();
}

void RichTextBox::focusInEvent(QFocusEvent* event)
{
    QTextEdit::focusInEvent(event);
    if (m_entered && IsPassing(event->reason())) return;
    m_entered = true;
    if (event->reason() != Qt::MouseFocusReason) ensureCursorVisible();
    Q_EMIT GotFocus();
}

void RichTextBox::focusOutEvent(QFocusEvent* event)
{
    if (!IsPassing(event->reason())) m_entered = false;
    QTextEdit::focusOutEvent(event);
}

void RichTextBox::mousePressEvent(QMouseEvent* event)
{
    // GotFocus may have put the focus back where it was; then the press leaves this box alone.
    const bool refused = window()->focusWidget() != this;
    m_pressed = event->button() == Qt::LeftButton && !refused;
    if (!refused) QTextEdit::mousePressEvent(event);
    Q_EMIT MouseDown(ButtonNumber(event->button()), event->globalPosition().toPoint());
}

void RichTextBox::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        QTextEdit::mouseDoubleClickEvent(event);
    } else {
        mousePressEvent(event);
    }
}

void RichTextBox::mouseReleaseEvent(QMouseEvent* event)
{
    QTextEdit::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton || !std::exchange(m_pressed, false)) return;
    if (viewport()->rect().contains(event->position().toPoint())) Q_EMIT Click();
}

// A drag of the selection runs within the move that begins it. The box never sees the button come up, and would scroll
// and drag on without it.
void RichTextBox::mouseMoveEvent(QMouseEvent* event)
{
    m_dragging = QGuiApplication::mouseButtons() & Qt::LeftButton;
    const int revision = document()->revision();
    QTextEdit::mouseMoveEvent(event);
    if (std::exchange(m_dragging, false) && !(QGuiApplication::mouseButtons() & Qt::LeftButton)) EndDrag(*event);
    m_moved.EndOfDrag(revision != document()->revision());
    if (std::exchange(m_leftInDrag, false)) ShowBeginning();
    Q_EMIT MouseMove();
}

void RichTextBox::EndDrag(const QMouseEvent& event)
{
    QMouseEvent release(QEvent::MouseButtonRelease, event.position(), event.globalPosition(), Qt::LeftButton,
                        Qt::NoButton, event.modifiers());
    QTextEdit::mouseReleaseEvent(&release);
    m_pressed = false;
}

void RichTextBox::ShowBeginning()
{
    // What is dragged out is still to be taken away, and is known by its selection.
    m_leftInDrag = m_dragging;
    if (m_dragging) return;
    QTextCursor caret = textCursor();
    caret.clearSelection();
    setTextCursor(caret);
    verticalScrollBar()->setValue(0);
}

// The mouse's press has raised MouseDown already; the menu key stands for a right press at the caret.
void RichTextBox::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    if (event->reason() == QContextMenuEvent::Mouse) return;
    Q_EMIT MouseDown(RightButton, viewport()->mapToGlobal(cursorRect().bottomLeft()));
}

bool RichTextBox::AdmitsKey(const QString& text)
{
    if (text.isEmpty()) return true;
    int keyAscii = text.front().unicode();
    Q_EMIT KeyPress(keyAscii);
    return keyAscii != 0;
}

void RichTextBox::keyPressEvent(QKeyEvent* event)
{
    // For keyboards without a menu key.
    if (event->keyCombination() == QKeyCombination(Qt::SHIFT, Qt::Key_F10)) {
        Q_EMIT MouseDown(RightButton, viewport()->mapToGlobal(cursorRect().bottomLeft()));
        return event->accept();
    }
    if (!AdmitsKey(CharacterOf(event))) return event->accept();
    if (event->key() == Qt::Key_Escape) return event->ignore();
    if (event->matches(QKeySequence::Undo) && m_moved.Undo()) return;
    if (event->matches(QKeySequence::Redo) && m_moved.Redo()) return;
    UseTypingFormat();
    const QString typed = TypesTab(*event) ? u"\t"_s : TypedInstead(*event);
    if (!typed.isEmpty()) return Locked() ? void() : Type(typed);
    const QScopedValueRollback admitted(m_admitted, true);
    std::optional<WithoutLines> noLines;
    if (ChangesMuch(event, textCursor())) noLines.emplace(*document());
    const QTextCharFormat format = TypedFormat();
    const int size = document()->characterCount();
    const bool hasText = textCursor().hasSelection() || textCursor().block().length() > 1;
    QTextEdit::keyPressEvent(event);
    if (hasText && document()->characterCount() < size && !TakesBack(event)) KeepFormat(format);
}

void RichTextBox::inputMethodEvent(QInputMethodEvent* event)
{
    const bool erases = event->commitString().isEmpty() && event->replacementLength() > 0;
    if (!AdmitsKey(erases ? u"\b"_s : event->commitString())) {
        QInputMethodEvent nothing; // takes what is shown back off the screen
        QTextEdit::inputMethodEvent(&nothing);
        QGuiApplication::inputMethod()->reset();
        return;
    }
    if (Locked()) return event->ignore(); // a text that can be selected by keys would take it in
    UseTypingFormat();
    const QTextCharFormat format = TypedFormat();
    const int start = std::max(SelStart() + event->replacementStart(), 0);
    QTextEdit::inputMethodEvent(event);
    FormatCommitted(start, event->commitString().size(), format);
    if (m_blank && !event->preeditString().isEmpty()) m_typingFormat = format; // it may just have become so
}

bool RichTextBox::AdmitsPaste()
{
    bool allowed = true;
    if (!m_admitted) Q_EMIT PasteRequested(allowed);
    return allowed;
}

// Asked here and not at the insertion, since a text that is moved has been cut from its old place by then.
void RichTextBox::dropEvent(QDropEvent* event)
{
    if (!AdmitsPaste()) {
        event->setDropAction(Qt::IgnoreAction);
        return event->ignore();
    }
    {
        const QScopedValueRollback admitted(m_admitted, true);
        QTextEdit::dropEvent(event);
    }
    auto* source = qobject_cast<RichTextBox*>(event->source() ? event->source()->parent() : nullptr);
    if (event->isAccepted() && source && source != this) source->m_moved.Dropped(m_moved);
    if (event->isAccepted()) setFocus(); // whoever has dropped something goes on to write there
}
