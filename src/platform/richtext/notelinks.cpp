#include "platform/richtext/notelinks.h"

#include "platform/richtext/addresses.h"
#include "platform/richtext/formatruns.h"
#include "platform/richtext/linklook.h"

#include <QTextBlock>

#include <algorithm>
#include <utility>

namespace {
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

// Browsers end a target with a stroke behind the host.
QString WithoutEnd(const QString& target)
{
    return target.count(u'/') == 3 && target.endsWith(u'/') ? target.chopped(1) : target;
}

// A text that leaves the scheme out is that of either.
bool Shows(const QString& text, const QString& target)
{
    const QString own = WithoutEnd(TargetOf(text)), meant = WithoutEnd(target);
    if (own.isEmpty()) return false;
    const bool isBare = !text.contains("://"_L1) && own.startsWith("http:"_L1);
    return own == meant || (isBare && u"https:"_s + own.sliced(5) == meant);
}

bool ShowsItself(const QTextDocument& document, const LinkPlace& place)
{
    return Shows(TextOfPlace(document, place), place.target);
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

// In order.
QList<LinkPlace> LinksIn(const QTextBlock& paragraph)
{
    QList<LinkPlace> links;
    for (auto i = paragraph.begin(); !i.atEnd(); ++i) {
        const QString target = i.fragment().charFormat().anchorHref();
        if (target.isEmpty()) continue;
        const int begin = i.fragment().position(), end = begin + i.fragment().length();
        const bool goesOn = !links.isEmpty() && links.last().end == begin && links.last().target == target;
        if (goesOn)
            links.last().end = end;
        else
            links += {begin, end, target};
    }
    return links;
}

bool IsLinked(const QTextDocument& document, int begin, int end)
{
    const auto place = LinkAt(document, begin);
    return place && place->begin == begin && place->end == end && ShowsItself(document, *place);
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
    for (const LinkPlace& place : LinksIn(block))
        if (place.begin <= position && position < place.end) return place;
    return {};
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
            if (IsFree(document, start, stop) && !IsLinked(document, start, stop))
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

FollowedLinks::FollowedLinks(const QTextCursor& selection, int place)
    : m_document(*selection.document()), m_revision(m_document.revision())
{
    QList<QTextBlock> paragraphs;
    for (const int at : {selection.selectionStart(), selection.selectionEnd(), place})
        if (const QTextBlock one = m_document.findBlock(at); one.isValid() && !paragraphs.contains(one))
            paragraphs += one;
    for (const QTextBlock& one : paragraphs)
        AddLinksOf(one);
}

void FollowedLinks::AddLinksOf(const QTextBlock& paragraph)
{
    const QList<LinkPlace> links = LinksIn(paragraph);
    if (links.isEmpty()) return; // as in most notes; the text is not copied
    const QString text = paragraph.text();
    for (const auto& [begin, end, target] : links)
        m_links +=
            {Range(QTextCursor(paragraph), begin, end), text.mid(begin - paragraph.position(), end - begin), target};
}

void FollowedLinks::FollowText()
{
    if (m_document.revision() == m_revision) return;
    for (const auto& [range, text, target] : m_links) {
        if (range.selectedText() == text || !Shows(text, target)) continue;
        // Return divides the text in two.
        VisitRuns(range, [&, &target = target](const QTextCursor& run, const QTextCharFormat&) {
            const auto place = LinkAt(m_document, run.selectionStart());
            if (place && place->target == target && !ShowsItself(m_document, *place)) Retarget(*place);
        });
    }
}

void FollowedLinks::Retarget(const LinkPlace& place)
{
    const QString target = TargetOf(TextOfPlace(m_document, place));
    QTextCursor cursor(&m_document);
    cursor.joinPreviousEditBlock();
    VisitRuns(Range(cursor, place.begin, place.end), [&](QTextCursor& run, const QTextCharFormat& format) {
        run.setCharFormat(target.isEmpty() ? WithoutLink(format) : LinkFormat(format, target));
    });
    cursor.endEditBlock();
}
