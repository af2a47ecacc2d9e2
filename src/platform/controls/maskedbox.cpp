#include "platform/controls/maskedbox.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>
#include <QRegularExpression>

#include <memory>

namespace {
constexpr QChar Missing = u'_';

// People part the numbers of a date by any of these, whatever the mask has.
bool IsSeparator(QChar character)
{
    return character == u'/' || character == u'-' || character == u'.';
}

// In any script; -1 for what is no digit.
int DigitOf(QChar character)
{
    return character.category() == QChar::Number_DecimalDigit ? character.digitValue() : -1;
}

bool IsTyping(const QKeyEvent& event)
{
    const QString text = event.text();
    const auto modifiers = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    const bool isCommand = modifiers == Qt::ControlModifier || modifiers == Qt::AltModifier;
    return !text.isEmpty() && text[0].isPrint() && !isCommand;
}

// The numbers of a pasted text, their digits plain ones; none if it holds anything else.
QStringList NumbersOf(const QString& text)
{
    QStringList numbers(QString{});
    for (const QChar character : text.trimmed()) {
        if (IsSeparator(character)) {
            numbers.append(QString());
        } else if (const int digit = DigitOf(character); digit >= 0) {
            numbers.last() += QString::number(digit);
        } else if (character != Missing) {
            return {};
        }
    }
    return numbers;
}

// A day or month of one digit as a mask of two has it. A year is left as it was written.
QString Padded(const QString& number, qsizetype length)
{
    return length == 2 && number.size() == 1 ? u'0' + number : number;
}
} // namespace

MaskEdBox::MaskEdBox(QWidget* parent) : QLineEdit(parent)
{
    setInputMethodHints(Qt::ImhPreferNumbers);
}

void MaskEdBox::SetMask(const QString& mask)
{
    m_mask = mask;
    m_typedTo = -1;
    QString inputMask;
    for (const QChar character : mask)
        inputMask += character == u'#' ? u"0"_s : u"\\"_s + character;
    setInputMask(mask.isEmpty() ? QString() : inputMask + u';' + Missing);
}

bool MaskEdBox::IsComplete() const
{
    return !Text().contains(Missing);
}

QString MaskEdBox::Text() const
{
    return displayText();
}

void MaskEdBox::SetText(const QString& text)
{
    if (m_mask.isEmpty()) return setText(text);
    setText(QString());
    setCursorPosition(0);
    Paste(text);
    setText(Text()); // nothing to undo
}

bool MaskEdBox::IsDigitPlace(int place) const
{
    return place < m_mask.size() && m_mask[place] == u'#';
}

QList<MaskEdBox::Group> MaskEdBox::Groups() const
{
    QList<Group> groups;
    for (int place = 0; place < m_mask.size(); ++place) {
        if (!IsDigitPlace(place)) continue;
        if (groups.isEmpty() || groups.last().end != place) groups.append({place, place});
        ++groups.last().end;
    }
    return groups;
}

int MaskEdBox::GroupAt(int place) const
{
    const QList<Group> groups = Groups();
    int number = 0;
    while (number + 1 < groups.size() && place > groups[number].end)
        ++number;
    return number;
}

int MaskEdBox::FirstMissing() const
{
    const QString text = Text();
    for (int place = int(text.size()); place > 0; --place) {
        if (IsDigitPlace(place - 1) && text[place - 1] != Missing) return place;
    }
    return 0;
}

void MaskEdBox::Replace(int start, int end, const QString& text)
{
    setSelection(start, end - start);
    insert(text);
}

void MaskEdBox::Type(const QString& text)
{
    for (const QChar character : text) {
        if (const int digit = DigitOf(character); digit >= 0) {
            insert(QString::number(digit));
            m_typedTo = cursorPosition();
        } else if (IsSeparator(character)) {
            MoveOn();
        }
    }
}

// A number of one digit gets its zero. The box has moved on by itself behind a full number: the separator that is typed
// there out of habit does nothing.
void MaskEdBox::MoveOn()
{
    const int caret = hasSelectedText() ? selectionStart() : cursorPosition();
    const QList<Group> groups = Groups();
    const int number = GroupAt(caret);
    const Group group = groups[number];
    const bool typedHere = std::exchange(m_typedTo, -1) == caret;
    if (typedHere && (caret == group.start || caret == group.end)) return;
    const QString typed = Text().mid(group.start, (typedHere ? caret : group.end) - group.start).remove(Missing);
    if (typed.size() == 1) Replace(group.start, group.end, Padded(typed, group.end - group.start));
    deselect();
    if (number + 1 < groups.size()) setCursorPosition(groups[number + 1].start);
}

// A whole date goes in from the start, wherever the caret is; a part of one goes where the caret is.
void MaskEdBox::Paste(const QString& text)
{
    QStringList numbers = NumbersOf(text);
    QList<Group> groups = Groups();
    if (numbers.isEmpty()) return;
    const bool isWhole = numbers.size() == 1 && numbers[0].size() == m_mask.count(u'#');
    if (numbers.size() == 1 && !isWhole) return Type(numbers[0]);
    if (isWhole) numbers = Split(numbers[0]);
    if (numbers.size() < groups.size()) groups.remove(0, GroupAt(cursorPosition()));
    Put(groups, numbers);
}

// The digits of a whole date, group by group.
QStringList MaskEdBox::Split(const QString& digits) const
{
    QStringList numbers;
    int taken = 0;
    for (const Group& group : Groups()) {
        numbers.append(digits.mid(taken, group.end - group.start));
        taken += group.end - group.start;
    }
    return numbers;
}

void MaskEdBox::Put(const QList<Group>& groups, const QStringList& numbers)
{
    if (numbers.size() > groups.size()) return;
    QString text;
    for (qsizetype i = 0; i < numbers.size(); ++i) {
        const qsizetype length = groups[i].end - groups[i].start;
        if (numbers[i].size() > length) return;
        if (i > 0) text += m_mask.mid(groups[i - 1].end, groups[i].start - groups[i - 1].end);
        text += Padded(numbers[i], length).leftJustified(length, Missing);
    }
    Replace(groups[0].start, groups[numbers.size() - 1].end, text);
}

bool MaskEdBox::event(QEvent* event)
{
    // The dialog's mnemonics and the menu's shortcuts have no claim on what is typed here.
    if (event->type() == QEvent::ShortcutOverride && IsTyping(static_cast<QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void MaskEdBox::keyPressEvent(QKeyEvent* event)
{
    if (!m_mask.isEmpty() && !isReadOnly() && Edit(*event)) return event->accept();
    QLineEdit::keyPressEvent(event);
    if (event->matches(QKeySequence::MoveToEndOfLine)) KeepCaretNear();
}

bool MaskEdBox::Edit(const QKeyEvent& event)
{
    if (event.matches(QKeySequence::Paste)) {
        Paste(QGuiApplication::clipboard()->text());
        return true;
    }
    if (event.matches(QKeySequence::Delete)) return DeleteForward();
    if (!IsTyping(event)) return false;
    Type(event.text());
    return true;
}

// Goes on behind what it took, so that the key held down empties the rest.
bool MaskEdBox::DeleteForward()
{
    if (hasSelectedText()) return false;
    int place = cursorPosition();
    while (place < m_mask.size() && !IsDigitPlace(place))
        ++place;
    if (place == m_mask.size()) return true;
    setCursorPosition(place);
    del();
    setCursorPosition(place + 1);
    return true;
}

// Behind the last digit there is nothing to be typed to: a press or the End key leads to the first that is missing.
void MaskEdBox::KeepCaretNear()
{
    if (m_mask.isEmpty() || hasSelectedText()) return;
    int near = FirstMissing();
    while (near < m_mask.size() && !IsDigitPlace(near))
        ++near;
    if (cursorPosition() > near) setCursorPosition(near);
}

void MaskEdBox::inputMethodEvent(QInputMethodEvent* event)
{
    const QString committed = event->commitString();
    if (m_mask.isEmpty() || committed.isEmpty()) return QLineEdit::inputMethodEvent(event);
    QInputMethodEvent composing(event->preeditString(), event->attributes());
    QLineEdit::inputMethodEvent(&composing);
    Type(committed);
    event->accept();
}

void MaskEdBox::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_mask.isEmpty() && !isReadOnly() && event->button() == Qt::MiddleButton) {
        const QClipboard& clipboard = *QGuiApplication::clipboard();
        if (clipboard.supportsSelection()) Paste(clipboard.text(QClipboard::Selection));
        return;
    }
    QLineEdit::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton) KeepCaretNear();
}

void MaskEdBox::contextMenuEvent(QContextMenuEvent* event)
{
    const std::unique_ptr<QMenu> menu(createStandardContextMenu());
    for (QAction* action : menu->actions()) {
        if (m_mask.isEmpty() || !action->text().startsWith(QLineEdit::tr("&Paste"))) continue;
        action->disconnect(SIGNAL(triggered(bool)));
        connect(action, &QAction::triggered, this, [this] { Paste(QGuiApplication::clipboard()->text()); });
    }
    menu->exec(event->globalPos());
}

void MaskEdBox::dropEvent(QDropEvent* event)
{
    if (m_mask.isEmpty()) return QLineEdit::dropEvent(event);
    QDragLeaveEvent left; // the caret that followed the mouse goes
    QLineEdit::dragLeaveEvent(&left);
    if (isReadOnly()) return;
    event->setDropAction(Qt::CopyAction); // what is not taken must not be taken away where it came from
    event->accept();
    Paste(event->mimeData()->text());
}
