// The look of a link, the accent colour and a line, is shown only and never stored. A colour other than black and a
// line of the text's own are stored, and are shown instead. An address that must not be opened looks like any text.
// Knows only QtGui.
#pragma once

#include <QTextFormat>

inline constexpr int LinkLookProperty = QTextFormat::UserProperty + 0x504; // what the look has replaced

QTextCharFormat LinkFormat(const QTextCharFormat& format, const QString& target); // with the look
QTextCharFormat WithoutLink(const QTextCharFormat& format);
QTextCharFormat WithoutLinkLook(const QTextCharFormat& format); // still a link
