// The criterion of a Find: [Field] LIKE "pattern". A pattern is compiled once for many texts:
//   *       any run of characters, none included
//   ?       one character
//   #       one digit, 0 to 9
//   [a-z]   one character of a list or range; [!a-z] one character that is not in it
// In brackets a special character stands for itself: [*], [?], [#], [[]. A "]" without a "[" is a plain character, and
// so is "!" except at the start of a list, and "-" at its start and end. "[]" matches nothing at all. Case does not
// matter.
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
    explicit LikePattern(const QString& pattern); // UnparsableCriterion: a list is not closed, or its range is reversed
    const QString& Text() const { return m_text; }
    bool Matches(QByteArrayView stored) const;
    // A piece of lower-case ASCII that every matching text contains in some case; may be empty.
    const QByteArray& Run() const { return m_run; }

private:
    void NoteCharacter(char32_t folded, QByteArray& run); // 0 for what stands for something else

    QString m_text;
    QRegularExpression m_form; // for folded texts
    QByteArray m_run;          // the longest one: a text without it need not be read
    char32_t m_sign = 0;       // a character beyond ASCII that a text must hold, 0 for none
};
