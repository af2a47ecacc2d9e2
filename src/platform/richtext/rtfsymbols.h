// The fonts that draw signs in place of letters: which sign stands at which byte. Knows only QtCore.
#pragma once

#include <QByteArrayView>
#include <QString>

#include <string_view>

struct RtfSymbols
{
    std::u16string_view family;
    std::u32string_view symbols; // from byte 32 on; what is missing here is U+F000 and the byte
};

// Null where the family is none of the fonts known to draw signs. Letter case plays no part.
const RtfSymbols* SymbolsOfFamily(QStringView family);

// What a font of an unknown family draws that is declared to hold signs.
const RtfSymbols& AnySymbols();

QString DecodeSymbols(QByteArrayView bytes, const RtfSymbols& font);

// The other form of such a byte, as a character for private use.
bool IsPrivateSymbol(char32_t character);

// 0 where the font has no such sign. Of a sign that it has twice, the first.
int ByteOfSymbol(char32_t character, const RtfSymbols& font);
