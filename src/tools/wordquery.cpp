#include "tools/wordquery.h"

#include "tools/foldedtext.h"

#include <QRegularExpression>

#include <algorithm>

namespace {
bool IsListed(QChar one, QStringView list)
{
    const bool isNot = list.size() > 1 && list.front() == u'!';
    if (isNot) list = list.sliced(1);
    for (qsizetype at = 0; at < list.size(); ++at) {
        const bool isRange = at + 2 < list.size() && list[at + 1] == u'-';
        if (list[at] <= one && one <= list[isRange ? at + 2 : at]) return !isNot;
        if (isRange) at += 2;
    }
    return isNot;
}

// The end of a list that begins here, or 0 if it is not closed.
qsizetype EndOfList(QStringView word, qsizetype at)
{
    return word[at] == u'[' ? word.indexOf(u']', at) + 1 : 0;
}

FoundSpan InText(const FoundSpan& span, const FoldedText& text)
{
    const qsizetype begin = text.PlaceInText(span.at), end = text.PlaceInText(span.at + span.length);
    // A hit may end within a letter that counts as two.
    const qsizetype last = text.PlaceInText(span.at + std::max<qsizetype>(span.length, 1) - 1);
    return {begin, std::max(end, last + 1) - begin};
}
} // namespace

WordQuery::WordQuery(const QString& typed) : m_typed(typed)
{
    bool isQuoted = false;
    static const QRegularExpression quotes(u"[\"\u201C\u201D\u201E\u00AB\u00BB]"_s);
    for (const QString& part : typed.split(quotes)) {
        if (isQuoted)
            Add(part);
        else
            for (const QString& word : part.simplified().split(u' '))
                Add(word);
        isQuoted = !isQuoted;
    }
}

void WordQuery::Add(const QString& word)
{
    Word parsed = Parse(word);
    std::erase_if(parsed, [](const Piece& piece) { return piece.items.empty(); });
    if (parsed.empty()) return;
    m_isPlain = m_isPlain && parsed.size() == 1 && parsed.front().isPlain;
    m_words.push_back(std::move(parsed));
}

WordQuery::Word WordQuery::Parse(const QString& word)
{
    Word pieces(1);
    for (qsizetype at = 0; at < word.size(); ++at) {
        Piece& piece = pieces.back();
        const QChar one = word[at];
        const qsizetype end = EndOfList(word, at);
        if (one == u'*') {
            pieces.emplace_back();
        } else if (one == u'?' || one == u'#' || end > 0) {
            const Item::Kind kind = one == u'?' ? Item::Any : one == u'#' ? Item::Digit : Item::List;
            const QString list = end > 0 ? word.sliced(at + 1, end - at - 2) : QString();
            piece.items.push_back({kind, {}, {}, FoldedText(list).Exact()});
            piece.isPlain = false;
            at = std::max(at, end - 1);
        } else {
            qsizetype next = at + 1; // together, so that an accent joins its letter
            while (next < word.size() && !QStringView(u"*?#").contains(word[next]) && EndOfList(word, next) == 0)
                ++next;
            AddCharacters(piece, QStringView(word).sliced(at, next - at));
            at = next - 1;
        }
    }
    return pieces;
}

void WordQuery::AddCharacters(Piece& piece, QStringView characters)
{
    const FoldedText folded(characters);
    for (qsizetype at = 0; at < folded.Base().size(); ++at)
        piece.items.push_back({Item::Character, folded.Exact()[at], folded.Base()[at], {}});
    piece.base += folded.Base();
}

bool WordQuery::Fits(const Item& item, const FoldedText& text, qsizetype at)
{
    switch (item.kind) {
    case Item::Character:
        // A typed letter without an accent stands for all; with one, the text must have the same.
        return item.base == text.Base()[at] && (item.exact == item.base || item.exact == text.Exact()[at]);
    case Item::Digit:
        return text.Exact()[at] >= u'0' && text.Exact()[at] <= u'9';
    case Item::List:
        return IsListed(text.Exact()[at], item.list);
    default:
        return true;
    }
}

bool WordQuery::FitsAt(const Piece& piece, const FoldedText& text, qsizetype at)
{
    return std::ranges::all_of(piece.items, [&](const Item& item) { return Fits(item, text, at++); });
}

// -1 if it is nowhere from there on.
qsizetype WordQuery::Find(const Piece& piece, const FoldedText& text, qsizetype from)
{
    const qsizetype last = text.Base().size() - static_cast<qsizetype>(piece.items.size());
    for (qsizetype at = from; at <= last; ++at) {
        if (piece.isPlain) at = text.Base().indexOf(piece.base, at);
        if (at < 0) break;
        if (FitsAt(piece, text, at)) return at;
    }
    return -1;
}

// Each piece is taken at its first fit: if the rest does not follow there, it follows nowhere.
std::optional<FoundSpan> WordQuery::Find(const Word& word, const FoldedText& text, qsizetype from)
{
    qsizetype begin = -1, end = from;
    for (const Piece& piece : word) {
        const qsizetype at = Find(piece, text, end);
        if (at < 0) return {};
        if (begin < 0) begin = at;
        end = at + static_cast<qsizetype>(piece.items.size());
    }
    return FoundSpan{begin, end - begin};
}

std::optional<FoundSpan> WordQuery::FirstIn(QStringView text) const
{
    const FoldedText folded(text);
    std::optional<FoundSpan> first;
    for (const Word& word : m_words) {
        const auto found = Find(word, folded, 0);
        if (!found) return {};
        if (!first) first = InText(*found, folded);
    }
    return first;
}

std::vector<FoundSpan> WordQuery::AllIn(QStringView text) const
{
    const FoldedText folded(text);
    std::vector<FoundSpan> all, apart;
    for (const Word& word : m_words)
        for (auto span = Find(word, folded, 0); span; span = Find(word, folded, span->at + span->length))
            all.push_back(InText(*span, folded));
    std::ranges::sort(all, {}, &FoundSpan::at);
    for (const FoundSpan& span : all) {
        const qsizetype end = apart.empty() ? 0 : apart.back().at + apart.back().length;
        if (span.at >= end)
            apart.push_back(span);
        else
            apart.back().length = std::max(end, span.at + span.length) - apart.back().at;
    }
    return apart;
}

// An accent that is typed narrows, too.
bool WordQuery::Narrows(const WordQuery& other) const
{
    if (!m_isPlain || !other.m_isPlain || other.IsEmpty()) return false;
    return std::ranges::all_of(other.m_words, [this](const Word& broad) {
        return std::ranges::any_of(m_words, [&](const Word& narrow) {
            const Piece &whole = narrow.front(), &part = broad.front();
            for (qsizetype at = whole.base.indexOf(part.base); at >= 0; at = whole.base.indexOf(part.base, at + 1)) {
                const auto fits = [&](const Item& item) {
                    const Item& typed = whole.items[std::size_t(at + (&item - part.items.data()))];
                    return item.exact == item.base || item.exact == typed.exact;
                };
                if (std::ranges::all_of(part.items, fits)) return true;
            }
            return false;
        });
    });
}
