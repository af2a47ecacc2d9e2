// Habits of text and numbers that the file formats and messages rest on.
#pragma once

#include <QString>

#include <cstdint>

// Decimal text with the blank that stands for the sign of a number that is not negative: 7 gives " 7".
QString Str(qint64 value);

// Decimal text without blanks, as keys need it.
QString TrimmedStr(qint64 value);

// The number at the start of a text: skips leading blanks, reads digits (and a sign, a fraction) as far as they go and
// gives 0 where there are none. Also reads the hexadecimal form "&H...", a 32-bit value; without a "&" behind it a
// value of up to four digits is a signed 16-bit one, so that "&HFFFF" is -1.
double Val(QStringView text);

// Narrows to a signed 16-bit value; error 6 when it does not fit.
std::int16_t CInt(qint64 value);

// CInt of Val, rounding a fraction to even.
std::int16_t IntegerOf(QStringView text);
