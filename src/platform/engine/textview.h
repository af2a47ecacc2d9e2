// How the bytes of a stored text read as characters, and which characters count as the same. For the criterion of a
// Find and for the search for a word in one text, so that both see the same.
#pragma once

#include <QByteArrayView>
#include <QString>

struct TextView
{
    // Must leave ASCII characters that stand in a row in that row.
    QString (*Read)(QByteArrayView stored);
    // Whether what is read may hold the character, in small or capital form; tells it at a glance. False: it does not.
    bool (*MayHold)(QByteArrayView stored, char32_t folded);
};

void SetTextView(const TextView& view);
void SetPlainTextView(); // UTF-8, as it is at the start

QString ViewedText(QByteArrayView stored);
bool MayHold(QByteArrayView stored, char32_t folded);

// Small and capital letters alike, in all of Unicode. Goes character by character, so that places stay what they are,
// and never makes ASCII of another character.
char32_t FoldedCase(char32_t character);
QString FoldedCase(QString text);
