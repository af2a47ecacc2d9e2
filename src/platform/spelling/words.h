// The words of a text that a dictionary can know.
#pragma once

#include <QString>

#include <vector>

inline constexpr qsizetype LongestWord = 60; // letters

struct TextSpan // of a text, in UTF-16 units
{
    int start = 0;
    int end = 0; // behind it
    bool operator==(const TextSpan&) const = default;
};

// The beginning of the text between blanks that holds or ends at this place.
int StartBetweenBlanks(QStringView text, int from);
// The next text between blanks at or after this place; empty at the end of the text if there is none.
TextSpan NextBetweenBlanks(QStringView text, int from);

// The words to check in a text without blanks. Left out are addresses, file names and paths, words with digits or only
// capitals, single letters and words longer than LongestWord. An apostrophe or soft hyphen between letters belongs to
// the word.
std::vector<TextSpan> WordsIn(QStringView text);

// As a dictionary has it: without soft hyphens, and with the straight apostrophe.
QString PlainWord(QStringView word);
