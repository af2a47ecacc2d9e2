#include "platform/engine/textview.h"

#include <algorithm>

namespace {
TextView g_textView = {[](QByteArrayView stored) { return QString::fromUtf8(stored); },
                       [](QByteArrayView stored, char32_t) {
                           return std::ranges::any_of(
                               stored, [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; });
                       }};
} // namespace

void SetTextView(const TextView& view)
{
    g_textView = view;
}

QString ViewedText(QByteArrayView stored)
{
    return g_textView.Read(stored);
}

bool MayHold(QByteArrayView stored, char32_t folded)
{
    return g_textView.MayHold(stored, folded);
}

char32_t FoldedCase(char32_t character)
{
    if (character < 0x80) return character >= U'A' && character <= U'Z' ? character + (U'a' - U'A') : character;
    const char32_t folded = QChar::toCaseFolded(QChar::toLower(character));
    return folded < 0x80 ? character : folded;
}

QString FoldedCase(QString text)
{
    for (qsizetype at = 0; at < text.size(); ++at) {
        QChar& unit = text[at];
        if (!unit.isSurrogate()) {
            unit = QChar(FoldedCase(char32_t{unit.unicode()}));
        } else if (unit.isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate()) {
            const char32_t folded = FoldedCase(QChar::surrogateToUcs4(unit, text[at + 1]));
            unit = QChar::highSurrogate(folded);
            text[++at] = QChar::lowSurrogate(folded);
        } else {
            unit = QChar::ReplacementCharacter; // half of a pair
        }
    }
    return text;
}
