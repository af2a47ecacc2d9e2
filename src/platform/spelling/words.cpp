#include "platform/spelling/words.h"

#include <QRegularExpression>

#include <algorithm>

namespace {
constexpr qsizetype LongestText = 256; // between blanks; a longer one is no prose

bool IsBetweenWords(QChar one)
{
    return one.isSpace();
}

// An address of the web or of mail, a path, the name of a file or host: they contain words of no language.
bool IsName(QStringView text)
{
    static const QRegularExpression name(uR"(://|\bwww\.|\S@\S|\\|^\W*~?/\w|^\W*\.\.?/|/\S*/|[\w]\.[\p{Ll}\d]{2})"_s,
                                         QRegularExpression::UseUnicodePropertiesOption);
    return name.match(text.toString()).hasMatch();
}

enum class Kind
{
    Letter,
    Inner,   // belongs to the word between letters
    Foreign, // the word is no word of a language
    Gap
};

Kind KindOf(char32_t one)
{
    if (QChar::isLetter(one) || QChar::isMark(one)) return Kind::Letter;
    if (QChar::isNumber(one) || one == U'_') return Kind::Foreign;
    constexpr std::u32string_view Inside = U"'\u2019\u00b7\u00ad\u200c\u200d";
    return Inside.find(one) != Inside.npos ? Kind::Inner : Kind::Gap;
}

// Collects one word, a character at a time.
struct Candidate
{
    int start = -1;
    int end = -1; // behind the last letter
    int letters = 0;
    bool isForeign = false;
    bool isInCapitals = true;

    void Take(char32_t one, Kind kind, int from, int to)
    {
        if (kind == Kind::Inner) return;
        if (start < 0) start = from;
        end = to;
        isForeign |= kind == Kind::Foreign;
        letters += QChar::isLetter(one);
        isInCapitals &= !QChar::isLetter(one) || QChar::isUpper(one);
    }
    bool IsWord() const { return letters > 1 && letters <= LongestWord && !isForeign && !isInCapitals; }
};
} // namespace

int StartBetweenBlanks(QStringView text, int from)
{
    const int most = std::max(0, from - int(LongestText) - 1); // from there on it is too long already
    while (from > most && !IsBetweenWords(text[from - 1]))
        --from;
    return from;
}

TextSpan NextBetweenBlanks(QStringView text, int from)
{
    const auto start = std::find_if_not(text.begin() + from, text.end(), IsBetweenWords);
    const auto end = std::find_if(start, text.end(), IsBetweenWords);
    return {int(start - text.begin()), int(end - text.begin())};
}

std::vector<TextSpan> WordsIn(QStringView text)
{
    std::vector<TextSpan> words;
    if (text.size() > LongestText || IsName(text)) return words;
    Candidate word;
    const auto finish = [&] {
        if (word.IsWord()) words.push_back({word.start, word.end});
        word = {};
    };
    for (int at = 0; at < text.size();) {
        const bool isPair = text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
        const char32_t one = isPair ? QChar::surrogateToUcs4(text[at], text[at + 1]) : text[at].unicode();
        const int next = at + (isPair ? 2 : 1);
        const Kind kind = KindOf(one);
        if (kind == Kind::Gap)
            finish();
        else
            word.Take(one, kind, at, next);
        at = next;
    }
    finish();
    return words;
}

QString PlainWord(QStringView word)
{
    QString plain = word.toString();
    return plain.remove(QChar::SoftHyphen).replace(u'\u2019', u'\'');
}
