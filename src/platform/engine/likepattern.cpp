#include "platform/engine/likepattern.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/textview.h"
#include "platform/runtime/runtimeerror.h"

#include <QRegularExpression>

#include <algorithm>
#include <cstring>

namespace {
[[noreturn]] void RaiseBroken(const QString& pattern)
{
    throw RunTimeError{engineerrors::UnparsableCriterion, u"Syntax error in the search pattern: %1"_s.arg(pattern)};
}

char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

char Upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}

// The next place of the letter in either case; behind it in a text without one.
class LetterFinder
{
public:
    LetterFinder(char low, const char* begin, const char* end)
        : m_low(low), m_high(Upper(low)), m_end(end), m_nextLow(Next(m_low, begin)),
          m_nextHigh(m_high == m_low ? end : Next(m_high, begin))
    {
    }
    const char* At() const { return std::min(m_nextLow, m_nextHigh); }
    void Advance()
    {
        if (m_nextLow < m_nextHigh)
            m_nextLow = Next(m_low, m_nextLow + 1);
        else
            m_nextHigh = Next(m_high, m_nextHigh + 1);
    }

private:
    const char* Next(char letter, const char* from) const
    {
        const void* found = std::memchr(from, letter, static_cast<std::size_t>(m_end - from));
        return found ? static_cast<const char*>(found) : m_end;
    }

    char m_low;
    char m_high;
    const char* m_end;
    const char* m_nextLow;
    const char* m_nextHigh;
};

// The run is in lower case already.
bool Contains(QByteArrayView text, const QByteArray& run)
{
    if (text.size() < run.size()) return false;
    const char* const end = text.end() - run.size() + 1;
    for (LetterFinder letter(run.front(), text.begin(), end); letter.At() < end; letter.Advance()) {
        const char* const rest = letter.At() + 1;
        if (std::equal(run.begin() + 1, run.end(), rest, [](char r, char t) { return r == Lower(t); })) return true;
    }
    return false;
}
} // namespace

Criterion ParseCriterion(const QString& text)
{
    static const QRegularExpression form(
        uR"re(^\s*\[([^\]]+)\]\s+LIKE\s+(?:"((?:[^"]|"")*)"|'((?:[^']|'')*)')\s*$)re"_s,
        QRegularExpression::CaseInsensitiveOption);
    const auto match = form.match(text);
    if (!match.hasMatch())
        throw RunTimeError{engineerrors::UnparsableCriterion, u"Syntax error in the search condition: %1"_s.arg(text)};
    const QChar quote = match.capturedStart(2) >= 0 ? u'"' : u'\'';
    QString pattern = match.captured(quote == u'"' ? 2 : 3);
    return {match.captured(1), pattern.replace(QString(2, quote), QString(quote))};
}

LikePattern::LikePattern(const QString& pattern)
{
    Parse(pattern.toStdU32String());
    NoteRun();
}

void LikePattern::Parse(const std::u32string& pattern)
{
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        const char32_t character = pattern[at];
        if (character == U'*' || character == U'?' || character == U'#') {
            m_items.push_back({character == U'*' ? Item::AnyRun : character == U'?' ? Item::AnyOne : Item::Digit});
        } else if (character != U'[') {
            m_items.push_back({Item::Character, FoldedCase(character)});
        } else {
            const std::size_t end = pattern.find(U']', at + 1);
            if (end == std::u32string::npos) RaiseBroken(QString::fromStdU32String(pattern));
            ParseList(std::u32string_view(pattern).substr(at + 1, end - at - 1));
            at = end;
        }
    }
}

void LikePattern::ParseList(std::u32string_view list)
{
    if (list.empty()) return;
    const bool isNot = list.size() > 1 && list.front() == U'!';
    if (isNot) list.remove_prefix(1);
    Item item{isNot ? Item::NoneOf : Item::OneOf};
    for (std::size_t at = 0; at < list.size(); ++at) {
        const bool isRange = at + 2 < list.size() && list[at + 1] == U'-';
        const char32_t from = FoldedCase(list[at]);
        const char32_t to = isRange ? FoldedCase(list[at + 2]) : from;
        if (from > to) RaiseBroken(QString::fromUcs4(list.data(), static_cast<qsizetype>(list.size())));
        item.ranges.emplace_back(from, to);
        if (isRange) at += 2;
    }
    m_items.push_back(std::move(item));
}

void LikePattern::NoteRun()
{
    QByteArray run;
    for (const Item& item : m_items) {
        const bool isAscii = item.kind == Item::Character && item.character < 0x80 && item.character != 0;
        if (item.kind == Item::Character && item.character >= 0x80 && !m_sign) m_sign = item.character;
        run = isAscii ? run + static_cast<char>(item.character) : QByteArray();
        if (run.size() > m_run.size()) m_run = run;
    }
}

bool LikePattern::Fits(const Item& item, char32_t character)
{
    switch (item.kind) {
    case Item::AnyOne:
        return true;
    case Item::Digit:
        return character >= U'0' && character <= U'9';
    case Item::OneOf:
    case Item::NoneOf: {
        const bool isListed = std::ranges::any_of(
            item.ranges, [=](const auto& range) { return range.first <= character && character <= range.second; });
        return isListed == (item.kind == Item::OneOf);
    }
    default:
        return item.character == character;
    }
}

// After a mismatch only the latest * has to take one character more, so the cost stays within text times pattern.
bool LikePattern::MatchesItems(std::u32string_view text) const
{
    constexpr std::size_t None = ~std::size_t{0};
    std::size_t at = 0, in = 0, star = None, resume = 0;
    while (at < text.size()) {
        if (in < m_items.size() && m_items[in].kind == Item::AnyRun) {
            star = in++;
            resume = at;
        } else if (in < m_items.size() && Fits(m_items[in], text[at])) {
            ++in, ++at;
        } else if (star != None) {
            in = star + 1;
            at = ++resume;
        } else {
            return false;
        }
    }
    return std::all_of(m_items.begin() + static_cast<std::ptrdiff_t>(in), m_items.end(),
                       [](const Item& item) { return item.kind == Item::AnyRun; });
}

bool LikePattern::Matches(QByteArrayView stored) const
{
    if (!m_run.isEmpty() && !Contains(stored, m_run)) return false;
    if (m_sign && !MayHold(stored, m_sign)) return false;
    std::u32string text = ViewedText(stored).toStdU32String();
    for (char32_t& character : text)
        character = FoldedCase(character);
    return MatchesItems(text);
}
