// How the bytes of a stored text decode to characters, and which characters are equal. Used by the criterion of Find
// and by the search in one text, so that both find the same.
#pragma once

#include <QByteArrayView>
#include <QString>

struct TextView
{
    // Must keep runs of ASCII characters together.
    QString (*Read)(QByteArrayView stored);
    // A quick check. False only if the decoded text does not hold the character in any case.
    bool (*MayHold)(QByteArrayView stored, char32_t folded);
};

void SetTextView(const TextView& view); // at first UTF-8

QString ViewedText(QByteArrayView stored);
bool MayHold(QByteArrayView stored, char32_t folded);

// Folds case in all of Unicode. Character by character, so that positions stay valid. Never turns another character
// into ASCII.
char32_t FoldedCase(char32_t character);
QString FoldedCase(QString text);
