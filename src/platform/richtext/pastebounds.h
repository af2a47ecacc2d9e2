// Limits for clipboard data, which may come from anybody. What is within them can be read and laid out quickly. Knows
// only QtCore.
#pragma once

#include <QByteArrayView>
#include <QString>

inline constexpr qsizetype MostPastedText = 2 << 20;   // characters, or bytes of rich text without its pictures
inline constexpr qsizetype MostPastedFiles = 100;      // inserted as pictures; of more files the names are pasted
inline constexpr qint64 MostImageFileBytes = 64 << 20; // of each

bool IsRtfWithinBounds(QByteArrayView rtf);

// Checks the length without image data, the nesting, and the number of images and list items. The time to read them
// grows with the square of each.
bool IsHtmlWithinBounds(const QString& html);
