// A text as people compare it: without case, and letters with and without their accents. Plain computation.
#pragma once

#include <QString>

#include <vector>

class FoldedText
{
public:
    explicit FoldedText(QStringView text);

    // Two forms of equal length: with accents, and with letters alone. Case is folded, "ß" is "ss", blanks and quotes
    // are those of the keyboard, every line end is '\n', and what is not seen, such as a soft hyphen, is left out.
    const QString& Exact() const { return m_exact; }
    const QString& Base() const { return m_base; }
    // Where the character at this place of the forms begins in the text; the end belongs to the text's end.
    qsizetype PlaceInText(qsizetype at) const { return m_places.empty() ? at : m_places[std::size_t(at)]; }

private:
    void Expand(QStringView text, qsizetype from);
    void Put(char16_t exact, char16_t base, qsizetype place);
    void PutMark(char16_t mark);

    QString m_exact, m_base;
    std::vector<qsizetype> m_places; // empty while all places are equal
};
