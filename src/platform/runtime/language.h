// Conversions of numbers and text as file formats and messages need them.
#pragma once

#include <QString>

#include <cstdint>

// Decimal text with a blank in place of a plus sign: 7 gives " 7".
QString Str(qint64 value);

// Decimal text without blanks, for keys.
QString TrimmedStr(qint64 value);

// The number at the start of a text: leading blanks, sign, digits, fraction; 0 if there is none. "&H..." is hexadecimal
// and 32-bit; without a closing "&" up to four digits are a signed 16-bit value, so "&HFFFF" is -1.
double Val(QStringView text);

// Narrows to 16 bits; raises errors::Overflow if the value does not fit.
std::int16_t CInt(qint64 value);

// CInt(Val(text)), a fraction rounded to even.
std::int16_t IntegerOf(QStringView text);
