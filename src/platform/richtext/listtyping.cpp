#include "platform/richtext/listtyping.h"

#include "platform/desktop/twips.h"
#include "platform/richtext/linklook.h"
#include "platform/richtext/paragraphdirection.h"
#include "platform/richtext/rtfpicture.h"

#include <QFontMetricsF>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>

#include <algorithm>
#include <utility>

namespace {
struct ListMark
{
    QString text, next; // with the blank or tab behind; no next one behind the last number
    int number = 0;     // of a list with numbers
    int zeroed = 1;     // digits, if zeros fill them up

    explicit operator bool() const { return !text.isEmpty(); }
};

constexpr int LastNumber = 999;

QString Zeroed(int number, int digits)
{
    return QString::number(number).rightJustified(digits, u'0');
}

ListMark MarkAtStart(const QString& paragraph)
{
    static const QRegularExpression form(u"^(?:[-*\u2022]|(\\d{1,3})([.)]))[ \t]"_s);
    const auto match = form.match(paragraph);
    if (!match.hasMatch()) return {};
    if (!match.hasCaptured(1)) return {match.captured(), match.captured()};
    const QString digits = match.captured(1), behind = match.captured().sliced(digits.size());
    const int number = digits.toInt(), zeroed = digits.startsWith(u'0') ? static_cast<int>(digits.size()) : 1;
    return {match.captured(), number < LastNumber ? Zeroed(number + 1, zeroed) + behind : QString(), number, zeroed};
}

bool Hangs(const QTextBlock& block)
{
    return block.blockFormat().textIndent() < 0;
}

// Where the first line begins, from the side where the text begins.
int Outset(const RtfParagraph& paragraph, Qt::LayoutDirection direction)
{
    return std::max(paragraph.measures[StartOf(direction)] + paragraph.measures[RtfParagraph::First], 0);
}

// "24. December" is a date, also below "23. Birthday": a list with numbers begins with 1.
bool IsInList(QTextBlock item, const ListMark& mark)
{
    for (int number = mark.number; number > 1 && !Hangs(item);) {
        item = item.previous();
        if (MarkAtStart(item.text()).number != --number) return false;
    }
    return true;
}

// An item that hangs already keeps its form, and gives it to the next one. The direction is fixed, since a mark has
// none of its own and the indent belongs to a side.
QTextBlockFormat HangingFormat(const QTextBlock& block, const QString& mark, const QTextCharFormat& format,
                               Qt::LayoutDirection direction)
{
    if (Hangs(block)) return WithFixedDirection(block.blockFormat(), direction);
    RtfParagraph paragraph = ToRtfParagraph(block.blockFormat());
    const int width = qRound(QFontMetricsF(format.font()).horizontalAdvance(mark) * TwipsPerPixel);
    paragraph.measures[StartOf(direction)] = Outset(paragraph, direction) + width;
    paragraph.measures[RtfParagraph::First] = -width;
    const Qt::LayoutDirection set = std::exchange(paragraph.direction, direction);
    QTextBlockFormat hanging = ToBlockFormat(paragraph);
    hanging.setLayoutDirection(set);
    return WithFixedDirection(hanging, direction);
}

QTextBlockFormat PlainFormat(const QTextBlock& block)
{
    RtfParagraph paragraph = ToRtfParagraph(block.blockFormat());
    const Qt::LayoutDirection direction = block.textDirection();
    paragraph.measures[StartOf(direction)] = Outset(paragraph, direction);
    paragraph.measures[RtfParagraph::First] = 0;
    if (HasFixedDirection(block.blockFormat())) paragraph.direction = Qt::LayoutDirectionAuto;
    return ToBlockFormat(paragraph);
}

QChar SignOf(const ListMark& mark)
{
    return mark.text.at(mark.text.size() - 2); // before the blank
}

// Adds this to the numbers that directly follow the mark's, in the items below.
void Renumber(const QTextCursor& caret, const ListMark& mark, int by)
{
    int number = mark.number;
    for (QTextBlock item = caret.block().next(); item.isValid() && Hangs(item); item = item.next()) {
        const ListMark next = MarkAtStart(item.text());
        if (next.number != ++number || SignOf(next) != SignOf(mark) || number + by > LastNumber) return;
        QTextCursor digits(item);
        digits.setPosition(item.position() + static_cast<int>(next.text.size()) - 2, QTextCursor::KeepAnchor);
        digits.insertText(Zeroed(number + by, std::max(next.zeroed, mark.zeroed)));
    }
}
} // namespace

void ContinueList(QTextCursor& caret)
{
    const QTextBlock item = caret.block().previous();
    const ListMark mark = MarkAtStart(item.text());
    const bool hasText = mark && !item.text().sliced(mark.text.size()).trimmed().isEmpty();
    if (mark.next.isEmpty() || !caret.atBlockStart() || !(hasText || Hangs(item)) || !IsInList(item, mark)) return;
    const QTextCharFormat format = WithoutImage(WithoutLink(caret.charFormat()));
    const Qt::LayoutDirection direction = item.textDirection();
    const QTextBlockFormat next = HangingFormat(item, mark.next, format, direction);
    caret.beginEditBlock();
    QTextCursor(item).setBlockFormat(HangingFormat(item, mark.text, item.begin().fragment().charFormat(), direction));
    caret.setBlockFormat(next);
    caret.insertText(mark.next, format);
    Renumber(caret, mark, 1);
    caret.endEditBlock();
}

bool EndItem(QTextCursor& caret, Item kind)
{
    const QTextBlock item = caret.block();
    const ListMark mark = MarkAtStart(item.text());
    const bool isAtText = mark && caret.positionInBlock() == mark.text.size() && !caret.hasSelection();
    if (!isAtText || !Hangs(item) || (kind == Item::Empty && !caret.atBlockEnd())) return false;
    const QTextCharFormat format = WithoutImage(WithoutLink(caret.charFormat()));
    caret.beginEditBlock();
    caret.setBlockFormat(PlainFormat(item));
    caret.movePosition(QTextCursor::StartOfBlock, QTextCursor::KeepAnchor);
    caret.removeSelectedText();
    if (caret.atBlockEnd()) caret.setBlockCharFormat(format);
    Renumber(caret, mark, -1);
    caret.endEditBlock();
    return true;
}

bool KeptDirection::IsNeeded(const QTextCursor& caret)
{
    return Hangs(caret.block()) && caret.blockFormat().layoutDirection() == Qt::LayoutDirectionAuto;
}

KeptDirection::KeptDirection(const QTextCursor& caret)
    : m_paragraph(caret.blockNumber()), m_direction(caret.block().textDirection())
{
}

void KeptDirection::Keep(QTextCursor caret) const
{
    const QTextBlock item = caret.block();
    if (!Hangs(item) || item.blockNumber() != m_paragraph || item.textDirection() == m_direction) return;
    caret.joinPreviousEditBlock();
    caret.setBlockFormat(WithFixedDirection(item.blockFormat(), m_direction));
    caret.endEditBlock();
}
