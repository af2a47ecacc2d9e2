#include "tools/foldedtext.h"

#include "platform/engine/textview.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {
struct Folding
{
    enum Kind : char16_t
    {
        Letter,
        Pair, // two letters
        Mark, // an accent of the letter before it
        Unseen
    };
    char16_t exact = 0, base = 0;
    Kind kind = Letter;
};
using Foldings = std::array<Folding, 0x10000>;

struct Row
{
    char16_t character, exact, base;
    Folding::Kind kind = Folding::Letter;
};

// What the tables of the characters do not say. Both letters of a pair are its exact form.
constexpr Row Rows[] = {
    {u'ß', u's', u's', Folding::Pair},
    {u'ẞ', u's', u's', Folding::Pair},
    {u'æ', u'a', u'e', Folding::Pair},
    {u'Æ', u'a', u'e', Folding::Pair},
    {u'œ', u'o', u'e', Folding::Pair},
    {u'Œ', u'o', u'e', Folding::Pair},
    {u'ł', u'ł', u'l'},
    {u'Ł', u'ł', u'l'},
    {u'ø', u'ø', u'o'},
    {u'Ø', u'ø', u'o'},
    {u'đ', u'đ', u'd'},
    {u'Đ', u'đ', u'd'},
    {u'ħ', u'ħ', u'h'},
    {u'Ħ', u'ħ', u'h'},
    {u'ı', u'ı', u'i'},
    {u'‘', u'\'', u'\''},
    {u'’', u'\'', u'\''},
    {u'“', u'"', u'"'},
    {u'”', u'"', u'"'},
    {u'\u2011', u'-', u'-'},
    {u'\u2028', u'\n', u'\n'},
    {u'\u2029', u'\n', u'\n'},
    {u'\t', u' ', u' '},
};

// Letters of their own for those who read them, though they are made of another letter and a mark.
constexpr std::u16string_view OwnLetters = u"йЙўЎїЇ";
constexpr char16_t FirstKana = 0x3040, LastKana = 0x30FF, FirstHangul = 0xAC00, LastHangul = 0xD7A3;
// Soft hyphen, marks of width and direction, the place of a picture, the Arabic stretch.
constexpr std::u16string_view Unseens =
    u"\u00AD\u200B\u200C\u200D\u200E\u200F\u2060\u2066\u2067\u2068\u2069\u202A\u202B\u202C\u202D\u202E\uFE0E\uFE0F"
    u"\uFEFF\uFFFC\u0640";

bool IsIn(char16_t one, char16_t first, char16_t last)
{
    return one >= first && one <= last;
}

// The marks of other scripts are letters to those who read them.
bool IsAccent(QChar mark)
{
    const QChar::Script script = mark.script();
    return mark.category() == QChar::Mark_NonSpacing &&
           (script == QChar::Script_Inherited || script == QChar::Script_Hebrew || script == QChar::Script_Arabic ||
            script == QChar::Script_Syriac);
}

bool IsOwnLetter(char16_t one)
{
    return OwnLetters.find(one) != OwnLetters.npos || IsIn(one, FirstKana, LastKana) ||
           IsIn(one, FirstHangul, LastHangul);
}

char16_t Fold(char16_t one)
{
    return QChar::isSurrogate(one) ? one : static_cast<char16_t>(FoldedCase(char32_t{one}));
}

// The letter below all accents, or the character itself.
char16_t LetterOf(char16_t one)
{
    if (one < 0x80 || IsOwnLetter(one) || QChar(one).decompositionTag() != QChar::Canonical) return one;
    const QString parts = QString(QChar(one)).normalized(QString::NormalizationForm_D);
    const bool isAccented = std::all_of(parts.begin() + 1, parts.end(), IsAccent);
    return isAccented ? parts.front().unicode() : one;
}

Folding FoldingOf(char16_t one)
{
    if (Unseens.find(one) != Unseens.npos) return {0, 0, Folding::Unseen};
    const QChar character(one);
    if (IsAccent(character)) return {one, one, Folding::Mark};
    if (character.category() == QChar::Separator_Space) return {u' ', u' '};
    return {Fold(one), Fold(LetterOf(one))};
}

// A search folds every character of a planner: asking the toolkit for each took longer than all the rest.
const Foldings& AllFoldings()
{
    static const Foldings all = [] {
        Foldings made;
        for (std::size_t one = 0; one < made.size(); ++one)
            made[one] = FoldingOf(static_cast<char16_t>(one));
        for (const Row& row : Rows)
            made[row.character] = {row.exact, row.base, row.kind};
        return made;
    }();
    return all;
}
} // namespace

FoldedText::FoldedText(QStringView text)
    : m_exact(text.size(), Qt::Uninitialized), m_base(text.size(), Qt::Uninitialized)
{
    const Foldings& foldings = AllFoldings();
    auto* exact = reinterpret_cast<char16_t*>(m_exact.data());
    auto* base = reinterpret_cast<char16_t*>(m_base.data());
    qsizetype at = 0;
    for (; at < text.size(); ++at) {
        const Folding& folding = foldings[text[at].unicode()];
        if (folding.kind != Folding::Letter) break;
        exact[at] = folding.exact;
        base[at] = folding.base;
    }
    if (at < text.size()) Expand(text, at);
}

// From here on the forms have other lengths than the text.
void FoldedText::Expand(QStringView text, qsizetype from)
{
    const Foldings& foldings = AllFoldings();
    m_exact.resize(from);
    m_base.resize(from);
    m_places.resize(std::size_t(from));
    for (qsizetype at = 0; at < from; ++at)
        m_places[std::size_t(at)] = at;
    for (qsizetype at = from; at < text.size(); ++at) {
        const Folding& folding = foldings[text[at].unicode()];
        if (folding.kind == Folding::Letter) Put(folding.exact, folding.base, at);
        if (folding.kind == Folding::Mark) PutMark(folding.exact);
        if (folding.kind != Folding::Pair) continue;
        Put(folding.exact, folding.exact, at);
        Put(folding.base, folding.base, at);
    }
    m_places.push_back(text.size());
}

void FoldedText::Put(char16_t exact, char16_t base, qsizetype place)
{
    m_exact += QChar(exact);
    m_base += QChar(base);
    m_places.push_back(place);
}

// The same as the letter that has the mark built in, if there is one; other marks do not matter.
void FoldedText::PutMark(char16_t mark)
{
    if (m_exact.isEmpty()) return;
    const QString whole = (QString(m_exact.back()) + QChar(mark)).normalized(QString::NormalizationForm_C);
    if (whole.size() != 1) return;
    const Folding& folding = AllFoldings()[whole.front().unicode()];
    m_exact.back() = QChar(folding.exact);
    m_base.back() = QChar(folding.base);
}
