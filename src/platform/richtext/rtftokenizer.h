// Splits rich text into tokens without copying. Any bytes are valid, nothing fails. Knows only QtCore.
#pragma once

#include <QByteArrayView>

struct RtfToken
{
    enum Kind : quint8
    {
        End,
        Open,
        Close,
        Word,
        Symbol,
        Hex,
        Text,
        Binary
    };

    Kind kind = End;
    bool isAscii = true; // of a text: all bytes are below 128
    bool hasParameter = false;
    int parameter = 0;    // of a word its number, clamped; of a hex escape its byte
    QByteArrayView bytes; // a word's letters, a symbol's character, a text, the data of \bin

    bool IsWord(QByteArrayView name) const { return kind == Word && bytes == name; }
    int ParameterOr(int otherwise) const { return hasParameter ? parameter : otherwise; }
};

class RtfTokenizer
{
public:
    explicit RtfTokenizer(QByteArrayView rtf) : m_at(rtf.begin()), m_end(rtf.end()) {}

    // Skips line ends and NUL bytes, so a text token holds none.
    RtfToken Next();
    const char* At() const { return m_at; } // end of the last token

private:
    RtfToken Control();
    RtfToken Word();
    RtfToken Hex();
    RtfToken Text();
    RtfToken Binary(int length);
    void ReadParameter(RtfToken& token);

    const char* m_at;
    const char* m_end;
};
