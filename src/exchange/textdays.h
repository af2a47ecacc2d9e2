// Splits a file of text with a heading before each day, as an export writes it: "1999-07-04 Sunday", "1999-07 Memo 3".
#pragma once

#include "exchange/extract.h"

#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

struct TextDay
{
    ExtractedNote place; // its rtf is empty
    QStringList lines;   // below the heading; the first holds what stands behind the date
};

struct TextDays
{
    std::vector<TextDay> days;
    QStringList leftOut; // with the numbers of the lines
};

// Takes any encoding that a byte order mark names, else UTF-8 or code page 1252, and any ends of lines. headingIn
// returns a heading's text without its marks, or nothing for another line.
TextDays DaysOf(const QByteArray& file, const std::function<std::optional<QString>(const QString& line)>& headingIn);
