// The instructions of fields: of all kinds only links are understood. Knows only QtCore.
#pragma once

#include <QString>

// The address that HYPERLINK leads to, with "#" and a place within it if there is one; empty for
// every other field.
QString LinkOfField(const QString& instruction);

// Longer ones are no links: a link is told again wherever it is interrupted.
inline constexpr qsizetype LongestLink = 2048;

// The instruction that leads there.
QString FieldOfLink(const QString& link);
