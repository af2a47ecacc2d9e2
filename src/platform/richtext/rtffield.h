// Field instructions. Only links are understood. Knows only QtCore.
#pragma once

#include <QString>

// The address of a HYPERLINK, with "#" and an anchor if given; empty for all other fields.
QString LinkOfField(const QString& instruction);

// Longer addresses are ignored, since a link is repeated wherever it is interrupted.
inline constexpr qsizetype LongestLink = 2048;

// The HYPERLINK instruction for the address.
QString FieldOfLink(const QString& link);
