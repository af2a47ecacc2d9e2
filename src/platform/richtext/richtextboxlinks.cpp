// Links under the mouse and at the caret.
#include "platform/desktop/links.h"
#include "platform/desktop/msgbox.h"
#include "platform/desktop/openlink.h"
#include "platform/richtext/notelinks.h"
#include "platform/richtext/richtextbox.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>

QString RichTextBox::LinkUnder(const QPoint& position) const
{
    const QString target = anchorAt(position);
    return links::MayOpen(target) ? target : QString();
}

QString RichTextBox::LinkAtCaret() const
{
    const int caret = textCursor().position();
    for (const int at : {caret, caret - 1})
        if (const auto place = LinkAt(*document(), at); place && links::MayOpen(place->target)) return place->target;
    return {};
}

void RichTextBox::OpenMenuAtCaret()
{
    TellMouseDown(RightButton, viewport()->mapToGlobal(cursorRect().bottomLeft()), LinkAtCaret());
}

// The menu opens meanwhile. Another one, opened later in spite of a refusal, is not of this place.
void RichTextBox::TellMouseDown(int button, const QPoint& globalPosition, const QString& link)
{
    m_linkOfMenu = link;
    Q_EMIT MouseDown(button, globalPosition);
    m_linkOfMenu.clear();
}

// Queued, since a key or the mouse has called.
void RichTextBox::OpenLink(const QString& target)
{
    if (target.isEmpty() || links::Open(target)) return;
    const auto tell = [target] {
        msgbox::Tell(u"This address cannot be opened."_s, msgbox::Exclamation, links::Shown(target));
    };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

bool RichTextBox::ShowLinkTip(const QHelpEvent& event)
{
    const QString target = LinkUnder(event.pos());
    if (target.isEmpty()) return false;
    // An address has places where a line may break.
    const QString tip =
        u"<p style='white-space:pre'>%1<br>Ctrl+click to open</p>"_s.arg(links::Shown(target).toHtmlEscaped());
    QToolTip::showText(event.globalPos(), tip, viewport());
    return true;
}

void RichTextBox::ShowPointer(const QPoint& position, Qt::KeyboardModifiers modifiers)
{
    const bool opens = modifiers & Qt::ControlModifier && !LinkUnder(position).isEmpty();
    const Qt::CursorShape shape = opens ? Qt::PointingHandCursor : Qt::IBeamCursor;
    if (viewport()->cursor().shape() != shape) viewport()->setCursor(shape);
}

// The mouse may rest on a link while Ctrl is pressed.
void RichTextBox::FollowControl(const QKeyEvent& event)
{
    if (event.key() != Qt::Key_Control || !viewport()->underMouse()) return;
    const bool isDown = event.type() == QEvent::KeyPress;
    ShowPointer(viewport()->mapFromGlobal(QCursor::pos()), isDown ? Qt::ControlModifier : Qt::NoModifier);
}
