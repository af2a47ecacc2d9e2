// The characters of rich text that is being written: words, escapes and text, all of it 7-bit. Knows only QtCore.
#pragma once

#include <QStringView>

#include <string>
#include <string_view>

struct RtfSymbols;

class RtfOutput
{
public:
    void Reserve(qsizetype length) { m_rtf.reserve(static_cast<std::size_t>(length)); }
    const std::string& Rtf() const { return m_rtf; }

    void Word(std::string_view word);
    void Word(std::string_view word, int parameter);
    void Raw(std::string_view rtf); // no end of a word that text could run into

    // NUL characters are left out. The names of fonts end at a semicolon, so that one is escaped there.
    void Text(QStringView text);
    void Name(QStringView name);

    // As the bytes that the font draws as these signs. What it has none for is written like other text.
    void Text(QStringView text, const RtfSymbols& font);

private:
    void Number(int number);
    void Character(QChar character);
    void Symbol(QStringView one, const RtfSymbols& font);
    void Hex(char16_t byte);
    void Unicode(char16_t unit);

    std::string m_rtf;
    bool m_isAfterWord = false; // then text needs a blank before it
};
