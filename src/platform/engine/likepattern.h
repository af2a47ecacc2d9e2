// The pattern of a LIKE, made ready for many texts:
//   *       any run of characters, none included
//   ?       one character
//   #       one digit, 0 to 9
//   [a-z]   one character of those listed, singly or from one to another; [!a-z] one that is none of them
// Brackets take what stands for something else as it is: [*], [?], [#], [[]. A "]" that closes nothing is a character
// like any other, "!" too but at the beginning of a list, "-" at its beginning and end; "[]" is nothing at all. Small
// and capital letters are alike.
#pragma once

#include <QByteArray>
#include <QString>

#include <utility>
#include <vector>

// The criterion of a Find: [Field] LIKE "pattern".
struct Criterion
{
    QString Field;
    QString Pattern;
};
Criterion ParseCriterion(const QString& text); // 3077

class LikePattern
{
public:
    explicit LikePattern(const QString& pattern); // 3077 for a list that is not closed or runs backwards
    bool Matches(QByteArrayView stored) const;
    // A piece of ASCII, in lower case, that every text that matches contains in some case; may be empty.
    const QByteArray& Run() const { return m_run; }

private:
    struct Item
    {
        enum Kind
        {
            AnyRun,
            AnyOne,
            Digit,
            Character,
            OneOf,
            NoneOf
        };
        Kind kind = Character;
        char32_t character = 0;
        std::vector<std::pair<char32_t, char32_t>> ranges = {}; // from and to, both included
    };

    static bool Fits(const Item& item, char32_t character);
    void Parse(const std::u32string& pattern);
    void ParseList(std::u32string_view list);
    void NoteRun();
    bool MatchesItems(std::u32string_view text) const;

    std::vector<Item> m_items;
    QByteArray m_run;    // the longest one: a text without it need not be read
    char32_t m_sign = 0; // a character beyond ASCII that a text must hold, 0 for none
};
