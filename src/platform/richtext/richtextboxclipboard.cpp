// The box's clipboard and drag data.
#include "platform/desktop/msgbox.h"
#include "platform/richtext/layoutcost.h"
#include "platform/richtext/notemimedata.h"
#include "platform/richtext/notepaste.h"
#include "platform/richtext/notepicture.h"
#include "platform/richtext/richtextbox.h"
#include "platform/richtext/rtfwriter.h"

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
    const int width = viewport()->width() - 2 * static_cast<int>(document()->documentMargin());
    const bool isPasted = [&] {
        const WithoutLines noLines(*document());
        return Paste(*source, cursor, InitialFormat(), {.width = std::max(width, 1)});
    }();
    if (!isPasted) return TellUnpasted(*source);
    setTextCursor(cursor);
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
