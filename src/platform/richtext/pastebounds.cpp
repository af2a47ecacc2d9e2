#include "platform/richtext/pastebounds.h"

#include "platform/richtext/rtftokenizer.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {

constexpr qsizetype MostRichText = 64 << 20; // bytes, pictures and all
constexpr qsizetype MostCharacters = 64 << 20;
constexpr qsizetype MostMarkup = 1 << 20;
constexpr int MostDepth = 200;

struct Limit
{
    QStringView element;
    int most;
};
constexpr std::array Limits{Limit{u"img", 500}, Limit{u"li", 5000}};

// Elements without content have no end.
constexpr QStringView Endless[] = {u"area",  u"base", u"br",   u"col",   u"hr", u"img",
                                   u"input", u"link", u"meta", u"param", u"p",  u"wbr"};

bool IsSame(QStringView one, QStringView other)
{
    return one.compare(other, Qt::CaseInsensitive) == 0;
}

// Takes off the view what stands before the first of these characters, or all of it.
QStringView TakeUntil(QStringView& html, QStringView ends)
{
    const auto end = std::ranges::find_if(html, [ends](QChar one) { return ends.contains(one); });
    const QStringView taken = html.first(end - html.begin());
    html = html.sliced(taken.size());
    return taken;
}

void SkipBlanks(QStringView& html)
{
    while (!html.isEmpty() && html.front().isSpace())
        html = html.sliced(1);
}

bool Skip(QStringView& html, QChar letter)
{
    const bool isThere = html.startsWith(letter);
    if (isThere) html = html.sliced(1);
    return isThere;
}

// The value of the next attribute of a tag, with or without quotes; the view goes on behind it.
QStringView TakeValue(QStringView& tag)
{
    for (const QChar quote : {u'"', u'\''})
        if (Skip(tag, quote)) {
            const QStringView value = TakeUntil(tag, {&quote, 1});
            Skip(tag, quote);
            return value;
        }
    return TakeUntil(tag, u" \t\r\n>");
}

// Characters that are the data of an image. The view begins behind the name in its tag and goes on behind the tag.
qsizetype TakeData(QStringView& tag)
{
    qsizetype size = 0;
    for (SkipBlanks(tag); !tag.isEmpty() && tag.front() != u'>'; SkipBlanks(tag)) {
        const QStringView name = TakeUntil(tag, u"= \t\r\n>");
        SkipBlanks(tag);
        if (!Skip(tag, u'=')) continue;
        SkipBlanks(tag);
        const QStringView value = TakeValue(tag);
        if (IsSame(name, u"src") && value.startsWith(u"data:", Qt::CaseInsensitive)) size += value.size();
    }
    return size;
}

// The name behind "<" or "</"; empty for a comment and the like.
QStringView ElementAt(QStringView tag)
{
    const auto end = std::ranges::find_if_not(tag, [](QChar one) { return one.isLetterOrNumber(); });
    return tag.first(end - tag.begin());
}

qsizetype SizeWithoutData(QStringView html)
{
    qsizetype size = html.size();
    for (qsizetype at = html.indexOf(u'<'); at >= 0; at = html.indexOf(u'<')) {
        html = html.sliced(at + 1);
        const QStringView element = ElementAt(html);
        html = html.sliced(element.size());
        if (IsSame(element, u"img")) size -= TakeData(html);
    }
    return size;
}

bool HasBoundedElements(QStringView html)
{
    int depth = 0;
    std::array<int, Limits.size()> counts{};
    for (qsizetype at = html.indexOf(u'<'); at >= 0; at = html.indexOf(u'<', at + 1)) {
        const bool isEnd = html.sliced(at + 1).startsWith(u'/');
        const QStringView element = ElementAt(html.sliced(at + 1 + isEnd));
        const auto isElement = [element](QStringView name) { return IsSame(name, element); };
        for (std::size_t i = 0; i < Limits.size(); ++i)
            if (!isEnd && isElement(Limits[i].element) && ++counts[i] > Limits[i].most) return false;
        if (element.isEmpty() || std::ranges::any_of(Endless, isElement)) continue;
        depth = std::max(0, depth + (isEnd ? -1 : 1));
        if (depth > MostDepth) return false;
    }
    return true;
}

// The data of pictures costs next to nothing, text is laid out.
qsizetype SizeWithoutPictures(QByteArrayView rtf)
{
    qsizetype size = 0;
    int depth = 0, pictureDepth = std::numeric_limits<int>::max();
    RtfTokenizer tokenizer(rtf);
    for (RtfToken token = tokenizer.Next(); token.kind != RtfToken::End; token = tokenizer.Next()) {
        if (token.kind == RtfToken::Open) ++depth;
        if (token.kind == RtfToken::Close && depth-- == pictureDepth) pictureDepth = std::numeric_limits<int>::max();
        if (token.IsWord("pict") || token.IsWord("objdata")) pictureDepth = std::min(pictureDepth, depth);
        if (depth < pictureDepth) size += token.bytes.size() + 1;
    }
    return size;
}

} // namespace

bool IsHtmlWithinBounds(QStringView html)
{
    return html.size() <= MostCharacters && SizeWithoutData(html) <= MostMarkup && HasBoundedElements(html);
}

bool IsRtfWithinBounds(QByteArrayView rtf)
{
    return rtf.size() <= MostRichText && SizeWithoutPictures(rtf) <= MostPastedText;
}
