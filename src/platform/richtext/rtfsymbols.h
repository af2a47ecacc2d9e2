// Symbol fonts: which sign each byte draws. Knows only QtCore.
#pragma once

#include <QByteArrayView>
#include <QString>

#include <string_view>

struct RtfSymbols
{
    std::u16string_view family;
    std::u32string_view symbols; // from byte 32 on; a missing one is U+F000 + byte
};

// Null if the family is no known symbol font. Letter case is ignored.
const RtfSymbols* SymbolsOfFamily(QStringView family);

// For fonts that are declared as symbol fonts but have an unknown family.
const RtfSymbols& AnySymbols();

QString DecodeSymbols(QByteArrayView bytes, const RtfSymbols& font);

// The byte as a private-use character, U+F000 + byte.
bool IsPrivateSymbol(char32_t character);

// 0 if the font has no such sign. If it has two, the first.
int ByteOfSymbol(char32_t character, const RtfSymbols& font);
