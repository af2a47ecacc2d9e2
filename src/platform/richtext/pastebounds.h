// What is taken from the clipboard at most, since anybody may have put it there: all that is within these bounds is
// read and laid out in good time. Knows only QtCore.
#pragma once

#include <QByteArrayView>
#include <QString>

inline constexpr qsizetype MostPastedText = 2 << 20;   // characters, or bytes of rich text beside its pictures
inline constexpr qsizetype MostPastedFiles = 100;      // taken as pictures; of more the names are pasted
inline constexpr qint64 MostImageFileBytes = 64 << 20; // of each

bool IsRtfWithinBounds(QByteArrayView rtf);

// Not too long, the data of its images aside, nor too deep, nor with more images and items of lists than a reader
// takes, whose time grows with the square of each.
bool IsHtmlWithinBounds(const QString& html);
