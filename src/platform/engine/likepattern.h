// The criterion of a Find: [Field] LIKE "pattern". A pattern is made ready once for many texts:
//   *       any run of characters, none included
//   ?       one character
//   #       one digit, 0 to 9
//   [a-z]   one character of those listed, singly or from one to another; [!a-z] one that is none of them
// Brackets take what stands for something else as it is: [*], [?], [#], [[]. A "]" that closes nothing is a character
// like any other, "!" too but at the beginning of a list, "-" at its beginning and end; "[]" is nothing at all. Small
// and capital letters are alike.
#pragma once

#include <QByteArray>
#include <QRegularExpression>

struct Criterion
{
    QString Field;
    QString Pattern;
};
Criterion ParseCriterion(const QString& text); // UnparsableCriterion

class LikePattern
{
public:
    explicit LikePattern(const QString& pattern); // UnparsableCriterion: a list is not closed or runs backwards
    bool Matches(QByteArrayView stored) const;
    // A piece of ASCII, in lower case, that every text that matches contains in some case; may be empty.
    const QByteArray& Run() const { return m_run; }

private:
    void NoteCharacter(char32_t folded, QByteArray& run); // 0 for what stands for something else

    QRegularExpression m_form; // for folded texts
    QByteArray m_run;          // the longest one: a text without it need not be read
    char32_t m_sign = 0;       // a character beyond ASCII that a text must hold, 0 for none
};
