#include "platform/controls/maskedbox.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QRegularExpression>

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
    QString plain;
    for (const QChar character : text.trimmed()) {
        const int digit = DigitOf(character);
        if (digit < 0 && !IsSeparator(character) && character != Missing) return {};
        if (character != Missing) plain += digit < 0 ? u"/"_s : QString::number(digit);
    }
    return plain.split(u'/');
}

// A day or month of one digit as a mask of two has it. A year is left as it was written.
QString Padded(const QString& number, qsizetype length)
{
    return (length == 2 && number.size() == 1 ? u'0' + number : number).leftJustified(length, Missing);
}
} // namespace

MaskEdBox::MaskEdBox(QWidget* parent) : QLineEdit(parent)
{
    setInputMethodHints(Qt::ImhPreferNumbers);
}

void MaskEdBox::SetMask(const QString& mask)
{
    static const QRegularExpression digits(u"#+"_s);
    m_mask = mask;
    m_typedTo = -1;
    m_groups.clear();
    for (const QRegularExpressionMatch& match : digits.globalMatch(mask))
        m_groups.append({match.capturedStart(), match.capturedEnd()});
    QString inputMask;
    for (const QChar character : mask)
        inputMask += character == u'#' ? u"0"_s : u"\\"_s + character;
    setInputMask(mask.isEmpty() ? QString() : inputMask + u';' + Missing);
}

bool MaskEdBox::IsComplete() const
{
    return !Text().contains(Missing);
}

void MaskEdBox::SetText(const QString& text)
{
    if (m_mask.isEmpty()) return setText(text);
    setText({});
    setCursorPosition(0);
    Take(text);
    setText(Text()); // nothing to undo
}

int MaskEdBox::GroupAt(int place) const
{
    int number = 0;
    while (number + 1 < m_groups.size() && place > m_groups[number].end)
        ++number;
    return number;
}

int MaskEdBox::DigitPlaceFrom(int place) const
{
    while (place < m_mask.size() && m_mask[place] != u'#')
        ++place;
    return place;
}

void MaskEdBox::Replace(const Group& part, const QString& text)
{
    setSelection(int(part.start), int(part.end - part.start));
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
    const int number = GroupAt(caret);
    const Group group = m_groups[number];
    const bool typedHere = std::exchange(m_typedTo, -1) == caret;
    if (typedHere && (caret == group.start || caret == group.end)) return;
    const QString typed = Text().mid(group.start, (typedHere ? caret : group.end) - group.start).remove(Missing);
    if (typed.size() == 1) Replace(group, Padded(typed, group.end - group.start));
    deselect();
    if (number + 1 < m_groups.size()) setCursorPosition(int(m_groups[number + 1].start));
}

// A whole date goes in from the start, wherever the caret is; a part of one goes where the caret is.
void MaskEdBox::Take(const QString& text)
{
    const QStringList numbers = NumbersOf(text);
    if (numbers.size() > 1) return Put(numbers.size() < m_groups.size() ? GroupAt(cursorPosition()) : 0, numbers);
    if (numbers.isEmpty()) return;
    if (numbers[0].size() == m_mask.count(u'#')) return Replace({0, m_mask.size()}, numbers[0]);
    Type(numbers[0]);
}

// All of the numbers, or none where they do not fit into the groups from this one on.
void MaskEdBox::Put(int group, const QStringList& numbers)
{
    const qsizetype last = group + numbers.size() - 1;
    if (last >= m_groups.size()) return;
    QString text;
    for (qsizetype i = 0; i < numbers.size(); ++i) {
        const auto& [start, end] = m_groups[group + i];
        if (numbers[i].size() > end - start) return;
        text += Padded(numbers[i], end - start) + m_mask.mid(end, DigitPlaceFrom(int(end)) - end);
    }
    Replace({m_groups[group].start, m_groups[last].end}, text);
}

void MaskEdBox::paste()
{
    m_mask.isEmpty() ? QLineEdit::paste() : Take(QGuiApplication::clipboard()->text());
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
    if (IsMasked()) {
        if (event->matches(QKeySequence::Paste)) return paste();
        if (event->matches(QKeySequence::Delete) && !hasSelectedText()) return DeleteForward();
        if (IsTyping(*event)) return Type(event->text());
    }
    QLineEdit::keyPressEvent(event);
    if (event->matches(QKeySequence::MoveToEndOfLine)) KeepCaretNear();
}

// Goes on behind what it took, so that the key held down empties the rest.
void MaskEdBox::DeleteForward()
{
    const int place = DigitPlaceFrom(cursorPosition());
    if (place == m_mask.size()) return;
    setCursorPosition(place);
    del();
    setCursorPosition(place + 1);
}

// Behind the last digit there is nothing to be typed to: a press or the End key leads to the first that is missing.
void MaskEdBox::KeepCaretNear()
{
    if (m_mask.isEmpty() || hasSelectedText()) return;
    static const QRegularExpression digit(u"\\d"_s);
    const int near = DigitPlaceFrom(int(Text().lastIndexOf(digit)) + 1);
    if (cursorPosition() > near) setCursorPosition(near);
}

void MaskEdBox::inputMethodEvent(QInputMethodEvent* event)
{
    if (!IsMasked() || event->commitString().isEmpty()) return QLineEdit::inputMethodEvent(event);
    QInputMethodEvent composing(event->preeditString(), event->attributes());
    QLineEdit::inputMethodEvent(&composing);
    Type(event->commitString());
}

void MaskEdBox::mouseReleaseEvent(QMouseEvent* event)
{
    if (IsMasked() && event->button() == Qt::MiddleButton)
        return Take(QGuiApplication::clipboard()->text(QClipboard::Selection));
    QLineEdit::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton) KeepCaretNear();
}

void MaskEdBox::dropEvent(QDropEvent* event)
{
    if (!IsMasked()) return QLineEdit::dropEvent(event);
    QDragLeaveEvent left; // the caret that followed the mouse goes
    QLineEdit::dragLeaveEvent(&left);
    event->setDropAction(Qt::CopyAction); // what is not taken must not be taken away where it came from
    event->accept();
    Take(event->mimeData()->text());
}
