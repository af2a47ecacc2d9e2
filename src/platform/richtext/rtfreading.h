// What the two readers of rich text have in common: one makes a document of it, the other a text to be searched.
#pragma once

#include <cstddef>

// Deeper groups share the state of this depth: what they set leaks out, but they cost nothing.
inline constexpr std::size_t RtfMaximumDepth = 1000;

inline constexpr int RtfLongestFallback = 255; // characters behind \u

// The signs that stand behind a backslash alone; 0 for none.
constexpr char16_t RtfSignOf(char symbol)
{
    switch (symbol) {
    case '~':
        return 0xA0;
    case '_':
        return 0x2011;
    case '-':
        return 0xAD;
    default:
        return 0;
    }
}
