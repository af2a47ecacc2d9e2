#include "platform/richtext/notelinks.h"

#include "platform/richtext/addresses.h"
#include "platform/richtext/linklook.h"

#include <QTextBlock>
#include <QTextLayout>

#include <algorithm>
#include <utility>

namespace {
// Calls visit(cursor, format) with each run of the same format selected.
template <typename Visit>
void VisitRuns(const QTextCursor& range, Visit visit)
{
    QList<QTextLayout::FormatRange> runs; // collected first, since changing formats invalidates the iterator
    const int begin = range.selectionStart(), end = range.selectionEnd();
    for (QTextBlock block = range.document()->findBlock(begin); block.isValid() && block.position() < end;
         block = block.next())
        for (auto i = block.begin(); !i.atEnd(); ++i) {
            if (i.fragment().position() >= end) break;
            const int from = std::max(i.fragment().position(), begin);
            const int to = std::min(i.fragment().position() + i.fragment().length(), end);
            if (from < to) runs.append({from, to - from, i.fragment().charFormat()});
        }
    QTextCursor run(range);
    for (const auto& [position, length, format] : runs) {
        run.setPosition(position);
        run.setPosition(position + length, QTextCursor::KeepAnchor);
        visit(run, format);
    }
}

bool IsGapAt(const QString& text, qsizetype at)
{
    return at < 0 || at >= text.size() || text[at].isSpace();
}

qsizetype StartOfWord(const QString& text, qsizetype at)
{
    while (!IsGapAt(text, at) && !IsGapAt(text, at - 1))
        --at;
    return at;
}

qsizetype EndOfWord(const QString& text, qsizetype at)
{
    while (!IsGapAt(text, at - 1) && !IsGapAt(text, at))
        ++at;
    return at;
}

QTextCursor Range(QTextCursor cursor, int begin, int end)
{
    cursor.setPosition(begin);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    return cursor;
}

QString TextOfPlace(const QTextDocument& document, const LinkPlace& place)
{
    const QTextBlock block = document.findBlock(place.begin);
    return block.text().mid(place.begin - block.position(), place.end - place.begin);
}

bool ShowsItself(const QTextDocument& document, const LinkPlace& place)
{
    return TargetOf(TextOfPlace(document, place)) == place.target;
}

// Whether the range has no link that a person has given another text.
bool IsFree(const QTextDocument& document, int begin, int end)
{
    for (int at = begin; at < end; ++at) {
        const auto place = LinkAt(document, at);
        if (!place) continue;
        if (!ShowsItself(document, *place)) return false;
        at = place->end - 1;
    }
    return true;
}

// Of the character at this position; quicker than a walk over the paragraph's runs.
QTextCharFormat FormatAt(const QTextBlock& block, int position)
{
    if (!block.isValid() || position + 1 >= block.position() + block.length()) return {};
    QTextCursor behind(block);
    behind.setPosition(position + 1);
    return behind.charFormat();
}

bool IsLinkedTo(const QTextDocument& document, const QString& target, int begin, int end)
{
    const auto place = LinkAt(document, begin);
    return place && place->begin == begin && place->end == end && place->target == target;
}
} // namespace

void HideLinkLook(const QTextCursor& selection)
{
    VisitRuns(selection, [](QTextCursor& run, const QTextCharFormat& format) {
        if (format.hasProperty(LinkLookProperty)) run.setCharFormat(WithoutLinkLook(format));
    });
}

void ShowLinkLook(const QTextCursor& selection)
{
    VisitRuns(selection, [](QTextCursor& run, const QTextCharFormat& format) {
        if (format.isAnchor()) run.setCharFormat(LinkFormat(format, format.anchorHref()));
    });
}

std::optional<LinkPlace> LinkAt(const QTextDocument& document, int position)
{
    const QTextBlock block = document.findBlock(position);
    if (position < 0 || !FormatAt(block, position).isAnchor()) return {};
    std::optional<LinkPlace> place;
    for (auto i = block.begin(); !i.atEnd(); ++i) {
        const int begin = i.fragment().position(), end = begin + i.fragment().length();
        const QString target = i.fragment().charFormat().anchorHref();
        if (place && place->target == target)
            place->end = end;
        else if (place && place->end > position)
            break;
        else
            place = {begin, end, target};
    }
    const bool isIn = place && !place->target.isEmpty() && place->begin <= position && position < place->end;
    return isIn ? place : std::nullopt;
}

bool IsTypedIntoLink(const QTextCursor& selection)
{
    if (!selection.hasSelection() && !selection.charFormat().isAnchor()) return false;
    const int begin = selection.selectionStart(), end = selection.selectionEnd();
    const auto place = LinkAt(*selection.document(), begin);
    return place && end <= place->end && (place->begin < begin || (begin < end && end < place->end));
}

void MakeLinks(QTextCursor caret, int begin, int end)
{
    const QTextDocument& document = *caret.document();
    constexpr int Most = 1000; // of one paste; each is looked for among the runs of its paragraph
    QList<LinkPlace> found;    // first, since most words are none
    int looked = 0;
    for (QTextBlock block = document.findBlock(begin); block.isValid() && block.position() < end;
         block = block.next()) {
        const QString text = block.text();
        const qsizetype first = std::max(begin - block.position(), 0);
        const qsizetype last = std::min<qsizetype>(end - block.position(), text.size());
        const qsizetype from = StartOfWord(text, first), to = EndOfWord(text, last);
        for (const Address& address : AddressesIn(QStringView(text).sliced(from, to - from))) {
            if (++looked > Most) break;
            const int start = block.position() + static_cast<int>(from + address.begin);
            const int stop = start + static_cast<int>(address.size);
            if (IsFree(document, start, stop) && !IsLinkedTo(document, address.target, start, stop))
                found.append({start, stop, address.target});
        }
    }
    if (found.isEmpty()) return;
    caret.beginEditBlock();
    for (const LinkPlace& place : found)
        VisitRuns(Range(caret, place.begin, place.end), [&](QTextCursor& run, const QTextCharFormat& format) {
            if (!format.isImageFormat()) run.setCharFormat(LinkFormat(format, place.target));
        });
    caret.endEditBlock();
}

FollowedLink::FollowedLink(const QTextCursor& caret)
    : m_document(*caret.document()), m_characters(m_document.characterCount())
{
    // A caret behind a link deletes its last letter.
    for (const int at : {caret.selectionStart(), caret.selectionStart() - 1}) {
        m_place = LinkAt(m_document, at);
        if (m_place && ShowsItself(m_document, *m_place)) break;
        m_place.reset();
    }
    if (m_place) m_place->begin = std::min(m_place->begin, caret.selectionStart());
}

void FollowedLink::FollowText(int caret)
{
    if (!m_place) return;
    const int end = m_place->end + m_document.characterCount() - m_characters;
    // Return divides the text in two.
    for (const int at : {caret, caret - 1, caret - 2, m_place->begin}) {
        const auto place = LinkAt(m_document, at);
        const bool isMeant = place && place->target == m_place->target && place->begin >= m_place->begin &&
                             place->end <= end && !ShowsItself(m_document, *place);
        if (isMeant) Retarget(*place);
    }
}

void FollowedLink::Retarget(const LinkPlace& place)
{
    const QString target = TargetOf(TextOfPlace(m_document, place));
    QTextCursor cursor(&m_document);
    cursor.joinPreviousEditBlock();
    VisitRuns(Range(cursor, place.begin, place.end), [&](QTextCursor& run, const QTextCharFormat& format) {
        run.setCharFormat(target.isEmpty() ? WithoutLink(format) : LinkFormat(format, target));
    });
    cursor.endEditBlock();
}
