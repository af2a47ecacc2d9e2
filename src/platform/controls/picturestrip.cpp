#include "platform/controls/picturestrip.h"

#include <QApplication>
#include <QClipboard>
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

// The text position of the picture under the point, or -1.
int PictureStrip::PictureAt(const QPoint& point) const
{
    QTextCursor caret = cursorForPosition(point); // before or behind the picture
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
    if (!inSelection) SelectAlone(picture);
}

void PictureStrip::SelectAlone(int picture)
{
    QTextCursor alone(document());
    alone.setPosition(picture);
    alone.setPosition(picture + 1, QTextCursor::KeepAnchor);
    setTextCursor(alone);
}

// The position of the first picture from this place on in the direction of step, or -1.
int PictureStrip::PictureFrom(int place, int step) const
{
    for (; place >= 0 && place < document()->characterCount(); place += step)
        if (document()->characterAt(place) == QChar::ObjectReplacementCharacter) return place;
    return -1;
}

// Otherwise the menu's shortcut would copy from the current cell.
bool PictureStrip::event(QEvent* event)
{
    const bool copies =
        event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy);
    if (!copies) return RichTextBox::event(event);
    event->accept();
    return true;
}

// The keyboard's way: the arrow keys select a picture, which can be copied and pasted into a note.
void PictureStrip::keyPressEvent(QKeyEvent* event)
{
    QPixmap cursor;
    if (event->matches(QKeySequence::Copy)) {
        // The same data as in a drag, for other programs.
        if (auto carried = Carried(cursor)) QGuiApplication::clipboard()->setMimeData(carried.release());
        return;
    }
    RichTextBox::keyPressEvent(event);
    const int key = event->key();
    const bool moves = key >= Qt::Key_Home && key <= Qt::Key_Down; // arrows, Home and End
    if (!moves || event->modifiers() & Qt::ShiftModifier) return;
    const bool forward = key == Qt::Key_Right || key == Qt::Key_Home;
    const int caret = textCursor().position();
    int picture = forward ? PictureFrom(caret, 1) : PictureFrom(caret - 1, -1);
    if (picture < 0) picture = forward ? PictureFrom(caret - 1, -1) : PictureFrom(0, 1);
    if (picture >= 0) SelectAlone(picture);
}

void PictureStrip::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_pressed) return RichTextBox::mouseMoveEvent(event);
    const QPoint moved = event->position().toPoint() - *m_pressed;
    if (moved.manhattanLength() < QApplication::startDragDistance()) return;
    m_pressed.reset();
    BeginDrag();
}

// A click on one of several selected pictures selects only that one.
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

// The data to copy or drag; null if no handler provides any.
std::unique_ptr<QMimeData> PictureStrip::Carried(QPixmap& cursor)
{
    auto carried = std::make_unique<QMimeData>();
    Q_EMIT OLEStartDrag(*carried, cursor);
    return carried->formats().isEmpty() ? nullptr : std::move(carried);
}

void PictureStrip::BeginDrag()
{
    QPixmap cursor;
    auto carried = Carried(cursor);
    if (!carried) return;
    auto* drag = new QDrag(this);
    drag->setMimeData(carried.release());
    drag->setDragCursor(cursor, Qt::CopyAction);
    QPixmap none(1, 1); // the cursor is the picture; nothing hangs beside it
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
