// What a person typed to look for, and its comparing with texts. Knows no widget and no planner.
//
// Case never matters. A letter without an accent stands for the letter with any; one with an accent for itself alone.
// All words must be in a text, in any place, also as parts of words; "quotes" keep words together. The signs of
// patterns are those of the engine's criterion: *, ?, # and [a-z]. A bracket without an end is a plain character.
#pragma once

#include <QString>

#include <optional>
#include <vector>

class FoldedText;

struct FoundSpan
{
    qsizetype at = 0, length = 0;
    bool operator==(const FoundSpan&) const = default;
};

class WordQuery
{
public:
    WordQuery() = default;
    explicit WordQuery(const QString& typed);

    bool IsEmpty() const { return m_words.empty(); } // then nothing is found
    const QString& Typed() const { return m_typed; }
    // The first place of the first word, if all words are in the text.
    std::optional<FoundSpan> FirstIn(QStringView text) const;
    // All places of all words, in their order and without overlaps.
    std::vector<FoundSpan> AllIn(QStringView text) const;
    // Whether every text with this query's words has those of the other, too. False if unsure.
    bool Narrows(const WordQuery& other) const;

    bool operator==(const WordQuery& other) const { return m_typed == other.m_typed; }

private:
    struct Item // one character of a pattern
    {
        enum Kind
        {
            Character,
            Any,
            Digit,
            List
        };
        Kind kind = Character;
        QChar exact, base;
        QString list; // of folded characters
    };
    struct Piece // of a word, between two *
    {
        std::vector<Item> items;
        QString base; // of the characters, if there is nothing else
        bool isPlain = true;
    };
    using Word = std::vector<Piece>;

    void Add(const QString& word);
    static Word Parse(const QString& word);
    static void AddCharacters(Piece& piece, QStringView characters);
    static bool Fits(const Item& item, const FoldedText& text, qsizetype at);
    static qsizetype Find(const Piece& piece, const FoldedText& text, qsizetype from);
    static bool FitsAt(const Piece& piece, const FoldedText& text, qsizetype at);
    static std::optional<FoundSpan> Find(const Word& word, const FoldedText& text, qsizetype from);

    QString m_typed;
    std::vector<Word> m_words;
    bool m_isPlain = true; // without patterns
};
