#include "platform/richtext/pastebounds.h"

#include "platform/richtext/rtftokenizer.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <limits>

namespace {

constexpr qsizetype MostRichText = 64 << 20; // bytes, with pictures
constexpr qsizetype MostCharacters = 64 << 20;
constexpr qsizetype MostMarkup = 1 << 20;
constexpr int MostDepth = 200;

struct Limit
{
    QStringView element;
    int most;
};
constexpr std::array Limits{Limit{u"img", 500}, Limit{u"li", 5000}};

// Elements without end tag.
constexpr QStringView Endless[] = {u"area",  u"base", u"br",   u"col",   u"hr", u"img",
                                   u"input", u"link", u"meta", u"param", u"p",  u"wbr"};

bool IsSame(QStringView one, QStringView other)
{
    return one.compare(other, Qt::CaseInsensitive) == 0;
}

// The element name behind "<" or "</"; empty for comments.
QStringView ElementAt(QStringView tag)
{
    const auto end = std::ranges::find_if_not(tag, [](QChar one) { return one.isLetterOrNumber(); });
    return tag.first(end - tag.begin());
}

// Subtracts the data in the first src attribute of each image. Quoted values of attributes before it may contain
// anything. Always matches the whole tag: a tag that is examined again from within costs the square of its length.
qsizetype SizeWithoutData(const QString& html)
{
    static const QRegularExpression data(
        uR"(<img(?![\p{L}\p{N}]))"
        uR"((?:\s*+(?!src\s*+=\s*+["']?data:)[^=\s>]*+\s*+(?:=\s*+(?:"[^"]*+"?+|'[^']*+'?+|[^\s>]*+))?+)*+)"
        uR"((?:\s*+src\s*+=\s*+("data:[^"]*+|'data:[^']*+|data:[^\s>]*+))?+)"_s,
        QRegularExpression::CaseInsensitiveOption);
    qsizetype size = html.size();
    for (const QRegularExpressionMatch& match : data.globalMatch(html))
        size -= match.capturedLength(1);
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

// Picture data is cheap; text must be laid out.
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

bool IsHtmlWithinBounds(const QString& html)
{
    return html.size() <= MostCharacters && SizeWithoutData(html) <= MostMarkup && HasBoundedElements(html);
}

bool IsRtfWithinBounds(QByteArrayView rtf)
{
    return rtf.size() <= MostRichText && SizeWithoutPictures(rtf) <= MostPastedText;
}
