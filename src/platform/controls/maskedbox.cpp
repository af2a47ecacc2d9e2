#include "platform/controls/maskedbox.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QRegularExpression>

namespace {
constexpr QChar Missing = u'_';

// Accepted between the numbers of a date, whatever the mask has.
bool IsSeparator(QChar character)
{
    return character == u'/' || character == u'-' || character == u'.';
}

// In any script; -1 if it is no digit.
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

// The numbers of a pasted text in ASCII digits; empty if it contains anything else.
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

// Pads a one-digit day or month with a zero. A year is left as it is.
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
    setText(Text()); // clears the undo steps
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

// Goes to the next number and pads a single digit. A full number has moved on already, so a separator typed there does
// nothing.
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

// A whole date replaces the content; a part is inserted at the caret.
void MaskEdBox::Take(const QString& text)
{
    const QStringList numbers = NumbersOf(text);
    if (numbers.size() > 1) return Put(numbers.size() < m_groups.size() ? GroupAt(cursorPosition()) : 0, numbers);
    if (numbers.isEmpty()) return;
    if (numbers[0].size() == m_mask.count(u'#')) return Replace({0, m_mask.size()}, numbers[0]);
    Type(numbers[0]);
}

// Inserts the numbers from this group on, or nothing if they do not fit.
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
    // Keeps shortcuts and mnemonics from taking typed characters.
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

// Moves on, so that a held key clears the rest.
void MaskEdBox::DeleteForward()
{
    const int place = DigitPlaceFrom(cursorPosition());
    if (place == m_mask.size()) return;
    setCursorPosition(place);
    del();
    setCursorPosition(place + 1);
}

// A press or the End key goes to the first missing digit, not behind it.
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
    QDragLeaveEvent left; // ends the drop indicator
    QLineEdit::dragLeaveEvent(&left);
    event->setDropAction(Qt::CopyAction); // a refused text must not be removed at its source
    event->accept();
    Take(event->mimeData()->text());
}
