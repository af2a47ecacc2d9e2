#include "platform/controls/picturestrip.h"

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>

namespace {
QStringList LocalFiles(const QMimeData& data)
{
    QStringList files;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile()) files.append(url.toLocalFile());
    }
    return files;
}

void AcceptFiles(QDropEvent& event)
{
    event.setDropAction(Qt::CopyAction);
    event.setAccepted(!LocalFiles(*event.mimeData()).isEmpty());
}
} // namespace

PictureStrip::PictureStrip(QWidget* parent) : RichTextBox(parent)
{
    SetLocked(true);
    setAcceptDrops(true);
    viewport()->setAcceptDrops(true);
    document()->setUndoRedoEnabled(false);
}

void PictureStrip::SetBackColor(const QColor& color)
{
    QPalette palette = viewport()->palette();
    palette.setColor(viewport()->backgroundRole(), color);
    viewport()->setPalette(palette);
    viewport()->setAutoFillBackground(true);
}

void PictureStrip::showEvent(QShowEvent* event)
{
    RichTextBox::showEvent(event);
    Q_EMIT Shown();
}

// The place of the picture under the point in the text, -1 for none.
int PictureStrip::PictureAt(const QPoint& point) const
{
    QTextCursor caret = cursorForPosition(point); // before or behind the picture, whichever is nearer
    for (const int place : {caret.position() - 1, caret.position()}) {
        if (place < 0 || document()->characterAt(place) != QChar::ObjectReplacementCharacter) continue;
        caret.setPosition(place);
        const QRect before = cursorRect(caret);
        caret.setPosition(place + 1);
        const QRect behind = cursorRect(caret);
        const bool sameLine = behind.top() <= point.y() && point.y() <= behind.bottom();
        if (sameLine && before.left() <= point.x() && point.x() < behind.left()) return place;
    }
    return -1;
}

bool PictureStrip::SelectionHas(const QPoint& point) const
{
    const QTextCursor selection = textCursor();
    const int place = cursorForPosition(point).position();
    return selection.hasSelection() && selection.selectionStart() <= place && place <= selection.selectionEnd();
}

void PictureStrip::mousePressEvent(QMouseEvent* event)
{
    m_pressed.reset();
    const QPoint point = event->position().toPoint();
    const int picture = PictureAt(point);
    const bool inSelection = SelectionHas(point);
    if (event->button() != Qt::LeftButton || (picture < 0 && !inSelection)) return RichTextBox::mousePressEvent(event);
    m_pressed = point;
    setFocus(Qt::MouseFocusReason);
    if (inSelection) return;
    QTextCursor alone(document());
    alone.setPosition(picture);
    alone.setPosition(picture + 1, QTextCursor::KeepAnchor);
    setTextCursor(alone);
}

void PictureStrip::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_pressed) return RichTextBox::mouseMoveEvent(event);
    const QPoint moved = event->position().toPoint() - *m_pressed;
    if (moved.manhattanLength() < QApplication::startDragDistance()) return;
    m_pressed.reset();
    BeginDrag();
}

// A click on one of several selected pictures selects it alone.
void PictureStrip::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_pressed) return RichTextBox::mouseReleaseEvent(event);
    setTextCursor(QTextCursor(document()));
    mousePressEvent(event);
    m_pressed.reset();
}

void PictureStrip::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}

void PictureStrip::BeginDrag()
{
    auto carried = std::make_unique<QMimeData>();
    QPixmap cursor;
    Q_EMIT OLEStartDrag(*carried, cursor);
    if (carried->formats().isEmpty()) return;
    auto* drag = new QDrag(this);
    drag->setMimeData(carried.release());
    drag->setDragCursor(cursor, Qt::CopyAction);
    QPixmap none(1, 1); // the picture is the pointer; nothing hangs beside it
    none.fill(Qt::transparent);
    drag->setPixmap(none);
    drag->exec(Qt::CopyAction);
    Q_EMIT OLECompleteDrag();
}

void PictureStrip::dragEnterEvent(QDragEnterEvent* event)
{
    AcceptFiles(*event);
}

void PictureStrip::dragMoveEvent(QDragMoveEvent* event)
{
    AcceptFiles(*event);
}

void PictureStrip::dropEvent(QDropEvent* event)
{
    AcceptFiles(*event);
    if (event->isAccepted()) Q_EMIT OLEDragDrop(LocalFiles(*event->mimeData()));
}
