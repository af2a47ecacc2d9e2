// Code pages of rich text and the character sets of its fonts. Knows only QtCore.
#pragma once

#include <QByteArrayView>
#include <QString>

inline constexpr int AnsiCodePage = 1252, MacCodePage = 10000, PcCodePage = 437, PcMultilingualCodePage = 850;

// The code page of a font's character set; 0 if the document's page counts.
int CodePageOfCharset(int charset);

// Undefined bytes become U+FFFD; an unknown page counts as 1252. Fonts often claim a multibyte page for text of single
// bytes: such text is decoded by otherPage.
QString DecodeRtfBytes(QByteArrayView bytes, int codePage, int otherPage = AnsiCodePage);
