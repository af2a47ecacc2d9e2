// The characters of rich text that is being written: words, escapes and text, all of it 7-bit. Knows only QtCore.
#pragma once

#include <QByteArray>
#include <QStringView>

struct RtfSymbols;

class RtfOutput
{
public:
    void Reserve(qsizetype length) { m_rtf.reserve(length); }
    const QByteArray& Rtf() const { return m_rtf; }

    void Word(QByteArrayView word);
    void Word(QByteArrayView word, int parameter);
    void Raw(QByteArrayView rtf); // no end of a word that text could run into

    // NUL characters are left out. The names of fonts end at a semicolon, so that one is escaped there.
    void Text(QStringView text);
    void Name(QStringView name);

    void Hex(char byte);
    void Letter(char letter); // as it is

    // As the bytes that the font draws as these signs. What it has none for is written like other text.
    void Text(QStringView text, const RtfSymbols& font);

private:
    void Character(QChar character);
    void Symbol(QStringView one, const RtfSymbols& font);
    void Unicode(char16_t unit);

    QByteArray m_rtf;
    bool m_isAfterWord = false; // then text needs a blank before it
};
