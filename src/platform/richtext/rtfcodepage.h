// The code pages that rich text writes its characters in, and the character sets that its fonts name. Knows only
// QtCore.
#pragma once

#include <QByteArrayView>
#include <QString>

inline constexpr int AnsiCodePage = 1252, MacCodePage = 10000, PcCodePage = 437, PcMultilingualCodePage = 850;

// The code page of a font's character set; 0 where the set leaves it to the document.
int CodePageOfCharset(int charset);

// Decodes by code page. What a page does not define becomes U+FFFD; an unknown page reads as 1252. Text of single bytes
// whose font claims a page of several bytes a character is common: it is read by the other page.
QString DecodeRtfBytes(QByteArrayView bytes, int codePage, int otherPage = AnsiCodePage);
