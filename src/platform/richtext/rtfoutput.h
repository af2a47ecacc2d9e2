// Writes the characters of rich text: words, escapes and text, all 7-bit. Knows only QtCore.
#pragma once

#include <QByteArray>
#include <QStringView>

#include <string>

struct RtfSymbols;

class RtfOutput
{
public:
    void Reserve(qsizetype length) { m_rtf.reserve(static_cast<std::size_t>(length)); }
    QByteArrayView Rtf() const { return {m_rtf.data(), static_cast<qsizetype>(m_rtf.size())}; }

    void Word(QByteArrayView word);
    void Word(QByteArrayView word, int parameter);
    void Raw(QByteArrayView rtf); // must not end with a control word if text follows

    // NUL characters are left out. Name() also escapes semicolons, since they end a font's name.
    void Text(QStringView text);
    void Name(QStringView name);

    void Hex(char byte);
    void Letter(char letter); // unescaped

    // Writes signs as the bytes of the symbol font. Characters that it does not have are written like other text.
    void Text(QStringView text, const RtfSymbols& font);

private:
    void Character(QChar character);
    void Symbol(QStringView one, const RtfSymbols& font);
    void Unicode(char16_t unit);

    std::string m_rtf;          // quicker to append to than a QByteArray
    bool m_isAfterWord = false; // then a blank must precede text
};
