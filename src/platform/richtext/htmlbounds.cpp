#include "platform/richtext/htmlbounds.h"

#include <algorithm>
#include <array>

namespace {

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

qsizetype SizeWithoutData(QStringView html)
{
    qsizetype size = html.size();
    for (qsizetype at = html.indexOf(u"data:"); at >= 0; at = html.indexOf(u"data:", at)) {
        const auto rest = html.sliced(at);
        const auto end = std::ranges::find_if(rest, [](QChar one) { return QStringView(u"\"'> ").contains(one); });
        size -= end - rest.begin();
        at += end - rest.begin();
    }
    return size;
}

// The name behind "<" or "</"; empty for a comment and the like.
QStringView ElementAt(QStringView tag)
{
    const auto end = std::ranges::find_if_not(tag, [](QChar one) { return one.isLetterOrNumber(); });
    return tag.first(end - tag.begin());
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

} // namespace

bool IsWithinBounds(QStringView html)
{
    return html.size() <= MostCharacters && SizeWithoutData(html) <= MostMarkup && HasBoundedElements(html);
}
