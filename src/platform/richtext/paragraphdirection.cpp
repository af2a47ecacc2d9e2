#include "platform/richtext/paragraphdirection.h"

#include <QTextBlock>
#include <QTextCursor>

#include <utility>

namespace {
constexpr int FixedDirectionProperty = QTextFormat::UserProperty + 0x505; // set by no person

QTextBlockFormat Directed(const QTextBlock& block, Qt::LayoutDirection direction)
{
    RtfParagraph paragraph = ToRtfParagraph(block.blockFormat());
    paragraph.direction = direction;
    if (block.textDirection() == direction) return ToBlockFormat(paragraph);
    if (paragraph.alignment == Qt::AlignLeft || paragraph.alignment == Qt::AlignRight) paragraph.alignment = {};
    std::swap(paragraph.measures[RtfParagraph::Left], paragraph.measures[RtfParagraph::Right]);
    return ToBlockFormat(paragraph);
}
} // namespace

QTextBlockFormat WithFixedDirection(QTextBlockFormat format, Qt::LayoutDirection direction)
{
    if (format.layoutDirection() != Qt::LayoutDirectionAuto) return format;
    format.setLayoutDirection(direction);
    format.setProperty(FixedDirectionProperty, true);
    return format;
}

bool HasFixedDirection(const QTextBlockFormat& format)
{
    return format.hasProperty(FixedDirectionProperty);
}

// A text from right to left has its indents at another side, so its direction is stored with them.
Qt::LayoutDirection DirectionToStore(const QTextBlock& block)
{
    const Qt::LayoutDirection direction = block.blockFormat().layoutDirection();
    const bool isUsual = direction == Qt::LeftToRight && !block.text().isRightToLeft();
    return HasFixedDirection(block.blockFormat()) && isUsual ? Qt::LayoutDirectionAuto : direction;
}

RtfParagraph::Measure StartOf(Qt::LayoutDirection direction)
{
    return direction == Qt::RightToLeft ? RtfParagraph::Right : RtfParagraph::Left;
}

void SetDirection(QTextCursor selection, Qt::LayoutDirection direction)
{
    selection.beginEditBlock();
    const QTextDocument& document = *selection.document();
    const int end = selection.selectionEnd();
    for (QTextBlock block = document.findBlock(selection.selectionStart()); block.isValid() && block.position() <= end;
         block = block.next()) {
        const QTextBlockFormat format = Directed(block, direction);
        if (format != block.blockFormat()) QTextCursor(block).setBlockFormat(format);
    }
    selection.endEditBlock();
}
