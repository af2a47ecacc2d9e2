#include "platform/richtext/layoutcost.h"
#include "platform/richtext/listtyping.h"
#include "platform/richtext/notelinks.h"
#include "platform/richtext/richtextbox.h"

#include <QAbstractTextDocumentLayout>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QInputMethod>
#include <QMetaMethod>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>

#include <algorithm>
#include <optional>

namespace {
// The focus returns from a menu, a popup or another window.
bool IsPassing(Qt::FocusReason reason)
{
    return reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason || reason == Qt::ActiveWindowFocusReason;
}

bool TypesTab(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Tab && event.modifiers() == Qt::ControlModifier;
}

// Their keys have a control character as text but change nothing.
bool OnlyReads(QKeyEvent* event)
{
    return event->matches(QKeySequence::Copy) || event->matches(QKeySequence::SelectAll);
}

// A person's key that changes the text but has no text itself, such as Shift+Insert. Keys posted by the program have
// passed their command's guard.
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

// A letter with Alt that no menu has: the toolkit would type it.
bool IsMistypedCommand(const QKeyEvent& event)
{
    const auto modifiers = event.modifiers() & (Qt::AltModifier | Qt::ControlModifier);
    return modifiers == Qt::AltModifier && !event.text().isEmpty() && event.text().front().isPrint();
}

bool OpensLink(const QKeyEvent& event)
{
    const bool isReturn = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    return isReturn && (event.modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier;
}

// Removes more than a letter, or restores it.
bool ChangesMuch(QKeyEvent* event, const QTextCursor& cursor)
{
    return TakesBack(event) || (cursor.hasSelection() && !CharacterOf(event).isEmpty());
}
} // namespace

// Ctrl with the wheel is passed on to the window, which zooms all notes of its view. The toolkit would scroll.
void RichTextBox::wheelEvent(QWheelEvent* event)
{
    m_directionKeys.Forget();
    if (event->modifiers() & Qt::ControlModifier) return event->ignore();
    QTextEdit::wheelEvent(event);
}

// Notes have their own font; the desktop's must not change it.
void RichTextBox::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::ApplicationFontChange) return;
    QTextEdit::changeEvent(event);
}

// An empty scroll bar looks like paper, so a press on it belongs to the text. Events that the text has ignored arrive
// here too and end here.
bool RichTextBox::event(QEvent* event)
{
    if (const auto direction = m_directionKeys.Take(*event)) SetTypedDirection(*direction);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        m_pressedBeside = !viewport()->geometry().contains(static_cast<QMouseEvent*>(event)->position().toPoint());
        break;
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
        break;
    case QEvent::ToolTip:
        return ShowLinkTip(*static_cast<QHelpEvent*>(event)) || QTextEdit::event(event);
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        FollowControl(*static_cast<QKeyEvent*>(event));
        return QTextEdit::event(event);
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
    // The line with the caret must stay visible when the text is wrapped again.
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
    // If a GotFocus handler moved the focus away, the press must not act on this box.
    m_directionKeys.Forget();
    const bool refused = window()->focusWidget() != this;
    m_pressed = event->button() == Qt::LeftButton && !refused;
    if (!refused) QTextEdit::mousePressEvent(event);
    TellMouseDown(event->button(), event->globalPosition().toPoint(), LinkUnder(event->position().toPoint()));
}

void RichTextBox::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return mousePressEvent(event);
    const double y = event->position().y() + verticalScrollBar()->value();
    const bool isBlank = IsEmpty() || y > document()->documentLayout()->documentSize().height();
    if (isBlank && isSignalConnected(QMetaMethod::fromSignal(&RichTextBox::BlankDblClick)))
        return Q_EMIT BlankDblClick();
    QTextEdit::mouseDoubleClickEvent(event);
}

void RichTextBox::mouseReleaseEvent(QMouseEvent* event)
{
    QTextEdit::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton || !std::exchange(m_pressed, false)) return;
    const QPoint at = event->position().toPoint();
    if (!viewport()->rect().contains(at)) return;
    Q_EMIT Click();
    if (event->modifiers() == Qt::ControlModifier && !textCursor().hasSelection()) OpenLink(LinkUnder(at));
}

// A drag runs inside the move event that starts it. The box misses the release, and without it would go on scrolling
// and dragging.
void RichTextBox::mouseMoveEvent(QMouseEvent* event)
{
    m_dragging = QGuiApplication::mouseButtons() & Qt::LeftButton;
    const int revision = document()->revision();
    std::optional<FollowedLinks> links;
    if (m_dragging && textCursor().hasSelection()) links.emplace(textCursor());
    QTextEdit::mouseMoveEvent(event);
    if (links) links->FollowText();
    if (std::exchange(m_dragging, false) && !(QGuiApplication::mouseButtons() & Qt::LeftButton)) EndDrag(*event);
    m_moved.EndOfDrag(revision != document()->revision());
    if (std::exchange(m_leftInDrag, false)) ShowBeginning();
    ShowPointer(event->position().toPoint(), event->modifiers());
    Q_EMIT MouseMove();
}

void RichTextBox::EndDrag(const QMouseEvent& event)
{
    QMouseEvent release(QEvent::MouseButtonRelease, event.position(), event.globalPosition(), Qt::LeftButton,
                        Qt::NoButton, event.modifiers());
    QTextEdit::mouseReleaseEvent(&release);
    m_pressed = false;
}

// A mouse press has raised MouseDown already. The menu key counts as a right press at the caret.
void RichTextBox::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    if (event->reason() != QContextMenuEvent::Mouse) OpenMenuAtCaret();
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
    // For keyboards without menu key.
    if (event->keyCombination() == QKeyCombination(Qt::SHIFT, Qt::Key_F10)) {
        OpenMenuAtCaret();
        return event->accept();
    }
    if (OpensLink(*event) && !LinkAtCaret().isEmpty()) return OpenLink(LinkAtCaret());
    if (IsMistypedCommand(*event)) return event->ignore();
    if (!AdmitsKey(CharacterOf(event))) return event->accept();
    if (event->key() == Qt::Key_Escape) return event->ignore();
    const auto tell = qScopeGuard([&] {
        if (TakesBack(event)) Q_EMIT TookBack();
    });
    if (event->matches(QKeySequence::Undo) && m_moved.Undo()) return;
    if (event->matches(QKeySequence::Redo) && m_moved.Redo()) return;
    PassKey(event);
}

// What the toolkit and we make of a key, and what follows by itself as steps of their own.
void RichTextBox::PassKey(QKeyEvent* event)
{
    if (EndListItem(*event)) return;
    const int revision = document()->revision();
    FollowedLinks links(textCursor());
    const KeptDirection direction(textCursor());
    ChangeByKey(event);
    if (document()->revision() == revision || TakesBack(event)) return;
    links.FollowText();
    direction.Keep(textCursor());
    RememberTyped(*event);
    const bool isCommand = event->modifiers() & Qt::ControlModifier && !TypesTab(*event);
    if (!isCommand && !event->text().isEmpty() && event->text().back().isSpace()) FollowTypedEnd();
}

void RichTextBox::ChangeByKey(QKeyEvent* event)
{
    UseTypingFormat();
    const QString typed = TypesTab(*event) ? u"\t"_s : TypedInstead(*event);
    if (!typed.isEmpty()) return Locked() ? void() : Type(typed);
    if (DeleteLetter(*event)) return;
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
        QInputMethodEvent nothing; // clears the preedit text
        QTextEdit::inputMethodEvent(&nothing);
        QGuiApplication::inputMethod()->reset();
        return;
    }
    if (Locked()) return event->ignore(); // selectable text would take the commit
    UseTypingFormat();
    const QTextCharFormat format = TypedFormat();
    const int start = std::max(SelStart() + event->replacementStart(), 0);
    FollowedLinks links(textCursor());
    const KeptDirection direction(textCursor());
    QTextEdit::inputMethodEvent(event);
    FormatCommitted(start, event->commitString().size(), format);
    links.FollowText();
    direction.Keep(textCursor());
    KeepTypingFormat(format);
    if (!event->commitString().isEmpty() && event->commitString().back().isSpace()) FollowTypedEnd();
    if (m_blank && !event->preeditString().isEmpty()) m_typingFormat = format; // it may just have become blank
}
