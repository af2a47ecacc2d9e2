#include "tools/foundmodel.h"

#include "platform/controls/dialogpart.h"

#include <QApplication>
#include <QPainter>

#include <algorithm>

namespace {
constexpr QChar Ellipsis(u'…');
constexpr qsizetype LettersBefore = 24; // on the screen

FoundLine LineAround(const NoteHit& note, const WordQuery& query)
{
    FoundSpan first = query.FirstIn(note.text).value_or(FoundSpan());
    for (; first.at < note.text.size() - 1 && note.text[first.at] == u'\n'; ++first.at)
        ; // a pattern may begin with the end of a line
    const qsizetype begin = first.at == 0 ? 0 : note.text.lastIndexOf(u'\n', first.at - 1) + 1;
    const qsizetype end = note.text.indexOf(u'\n', first.at);
    FoundLine line = {
        fnFormatDateKey(note.key), note.text.sliced(begin, (end < 0 ? note.text.size() : end) - begin), {}};
    line.text.replace(u'\t', u' ').remove(QChar::ObjectReplacementCharacter);
    line.marks = query.AllIn(line.text);
    // A pattern may reach over several lines.
    const qsizetype from = std::min(first.at - begin, line.text.size());
    if (line.marks.empty()) line.marks = {{from, line.text.size() - from}};
    return line;
}

// On one line, which may be longer than the width.
void LayOut(QTextLayout& layout, const QString& text, int width)
{
    layout.setText(text);
    layout.beginLayout();
    layout.createLine().setLineWidth(width);
    layout.endLayout();
}

void DrawLine(QPainter& painter, const QStyleOptionViewItem& option, const QRect& area, const FoundLine& line)
{
    QTextLayout layout;
    QTextOption oneLine;
    oneLine.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(oneLine);
    layout.setFont(option.font);
    layout.setFormats(BoldIn(line));
    LayOut(layout, line.text, area.width());
    if (layout.lineAt(0).naturalTextWidth() > area.width() && !line.text.isRightToLeft()) {
        const int room = area.width() - option.fontMetrics.horizontalAdvance(Ellipsis);
        const int end = layout.lineAt(0).xToCursor(room, QTextLine::CursorBetweenCharacters);
        LayOut(layout, line.text.first(end) + Ellipsis, area.width());
    }
    painter.setClipRect(area);
    layout.draw(&painter, QPointF(area.left(), area.top() + (area.height() - layout.lineAt(0).height()) / 2));
}

int DateWidth(const QFontMetrics& metrics)
{
    return metrics.horizontalAdvance(u"Sep Memo3, 2000"_s) + 2 * Rhythm;
}
} // namespace

QList<QTextLayout::FormatRange> BoldIn(const FoundLine& line)
{
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    QList<QTextLayout::FormatRange> ranges;
    for (const FoundSpan& mark : line.marks)
        ranges.append({static_cast<int>(mark.at), static_cast<int>(mark.length), bold});
    return ranges;
}

void CutAround(FoundLine& line, qsizetype before)
{
    constexpr qsizetype Most = 1000;
    const qsizetype word = line.marks.front().at;
    const qsizetype cut = word <= 2 * before ? 0 : line.text.lastIndexOf(u' ', word - before) + 1;
    if (cut > 0) line.text = Ellipsis + line.text.sliced(cut);
    for (FoundSpan& mark : line.marks)
        mark.at -= std::max<qsizetype>(cut - 1, 0);
    const qsizetype most = line.marks.front().at + Most;
    if (line.text.size() <= most) return;
    line.text = line.text.first(line.text[most - 1].isHighSurrogate() ? most - 1 : most) + Ellipsis;
    std::erase_if(line.marks, [&](const FoundSpan& mark) { return mark.at >= most; });
    for (FoundSpan& mark : line.marks)
        mark.length = std::min(mark.length, line.text.size() - mark.at);
}

void FoundModel::Show(const std::vector<NoteHit>& found, const WordQuery& query, std::size_t from)
{
    m_query = query;
    const std::size_t shown = m_notes.size();
    if (from >= shown && found.size() > shown) {
        beginInsertRows({}, static_cast<int>(shown), static_cast<int>(found.size()) - 1);
        m_notes.insert(m_notes.end(), found.begin() + std::ptrdiff_t(shown), found.end());
        endInsertRows();
    } else if (m_notes == found) {
        if (shown > 0) Q_EMIT dataChanged(index(0), index(static_cast<int>(shown) - 1)); // the marks may be others
    } else {
        beginResetModel();
        m_notes = found;
        endResetModel();
    }
}

FoundLine FoundModel::LineAt(int row) const
{
    return LineAround(m_notes.at(std::size_t(row)), m_query);
}

QVariant FoundModel::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole || !index.isValid()) return {};
    const FoundLine line = LineAt(index.row());
    return u"%1: %2"_s.arg(line.date, line.text);
}

void FoundDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QStyle* const style = option.widget ? option.widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, option.widget);
    FoundLine line = m_model.LineAt(index.row());
    CutAround(line, LettersBefore);
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const auto group = option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
    painter->save();
    painter->setFont(option.font);
    painter->setPen(option.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text));
    QRect area = option.rect.adjusted(Rhythm, 0, -Rhythm, 0);
    painter->drawText(area, Qt::AlignLeft | Qt::AlignVCenter, line.date);
    area.setLeft(area.left() + DateWidth(option.fontMetrics));
    DrawLine(*painter, option, area, line);
    painter->restore();
}

QSize FoundDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const
{
    return {2 * DateWidth(option.fontMetrics), option.fontMetrics.height() + Rhythm};
}
