// The box's clipboard and drag data, and drops.
#include "platform/desktop/msgbox.h"
#include "platform/richtext/layoutcost.h"
#include "platform/richtext/notelinks.h"
#include "platform/richtext/notemimedata.h"
#include "platform/richtext/notepaste.h"
#include "platform/richtext/notepicture.h"
#include "platform/richtext/richtextbox.h"
#include "platform/richtext/rtfwriter.h"

#include <QDropEvent>
#include <QScopedValueRollback>

QMimeData* RichTextBox::createMimeDataFromSelection() const
{
    const QTextCursor selection = textCursor();
    return new NoteMimeData(WriteRtf(selection), Font(), OnlyPicture(selection).has_value());
}

bool RichTextBox::canInsertFromMimeData(const QMimeData* source) const
{
    return !Locked() && CanPaste(*source);
}

void RichTextBox::insertFromMimeData(const QMimeData* source)
{
    if (Locked() || !AdmitsPaste()) return;
    UseTypingFormat();
    QTextCursor cursor = textCursor();
    const int begin = cursor.selectionStart();
    const int width = viewport()->width() - 2 * static_cast<int>(document()->documentMargin());
    FollowedLinks links(cursor);
    const bool isPasted = [&] {
        const WithoutLines noLines(*document());
        return Paste(*source, cursor, InitialFormat(), {.width = std::max(width, 1)});
    }();
    if (!isPasted) return TellUnpasted(*source);
    setTextCursor(cursor);
    links.FollowText();
    // Text of a note stays as it was there.
    if (!source->hasFormat(QString::fromUtf16(NoteFormat))) MakeLinks(cursor, begin, cursor.position());
    ensureCursorVisible();
}

// Queued, since a drag ends only when its drop returns.
void RichTextBox::TellUnpasted(const QMimeData& source)
{
    if (!CanPaste(source)) return;
    const auto tell = [] {
        msgbox::Tell(u"This cannot be pasted: it is empty, damaged, or too large for a note."_s, msgbox::Exclamation);
    };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

// Notes contain all that they show; nothing is loaded.
QVariant RichTextBox::loadResource(int, const QUrl&)
{
    return QByteArray();
}

bool RichTextBox::AdmitsPaste()
{
    bool allowed = true;
    if (!m_admitted) Q_EMIT PasteRequested(allowed);
    return allowed;
}

// Asked before the insertion, since by then a moved text has been cut from its old place.
void RichTextBox::dropEvent(QDropEvent* event)
{
    if (!AdmitsPaste()) {
        event->setDropAction(Qt::IgnoreAction);
        return event->ignore();
    }
    // So that typing goes on there. Before the text, since the first entry gives the box its font.
    setFocus();
    {
        const QScopedValueRollback admitted(m_admitted, true);
        FollowedLinks links(textCursor(), cursorForPosition(event->position().toPoint()).position());
        QTextEdit::dropEvent(event);
        links.FollowText();
    }
    auto* source = qobject_cast<RichTextBox*>(event->source() ? event->source()->parent() : nullptr);
    if (event->isAccepted() && source && source != this) source->m_moved.Dropped(m_moved);
}
