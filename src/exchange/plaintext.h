// The plain text of an export: below each heading a line of hyphens, the note's lines and an empty line.
#pragma once

#include <QString>

// Whether a line could be read as a heading, or is one with backslashes before it. Such a line of a note gets one more
// backslash, which a reader takes away.
bool LooksLikeHeading(const QString& line);
