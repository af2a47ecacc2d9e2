#include "platform/runtime/language.h"

#include "platform/runtime/runtimeerror.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {
double HexadecimalValue(QStringView text)
{
    const auto isDigit = [](QChar letter) { return u"0123456789ABCDEF"_s.contains(letter, Qt::CaseInsensitive); };
    const auto longest = text.begin() + qMin<qsizetype>(text.size(), 8);
    const QStringView digits = text.first(std::find_if_not(text.begin(), longest, isDigit) - text.begin());
    const quint32 value = digits.toUInt(nullptr, 16);
    const bool isLong = text.sliced(digits.size()).startsWith(u'&');
    return !isLong && digits.size() <= 4 ? static_cast<std::int16_t>(value) : static_cast<qint32>(value);
}

// Length of the decimal number at the start of the text.
qsizetype NumberLength(QStringView text)
{
    qsizetype at = 0;
    const auto digits = [&] {
        const qsizetype from = at;
        while (at < text.size() && text[at] >= u'0' && text[at] <= u'9')
            ++at;
        return at - from;
    };
    if (at < text.size() && (text[at] == u'-' || text[at] == u'+')) ++at;
    qsizetype found = digits();
    if (at < text.size() && text[at] == u'.') {
        ++at;
        found += digits();
    }
    return found > 0 ? at : 0;
}
} // namespace

QString Str(qint64 value)
{
    return value < 0 ? QString::number(value) : u' ' + QString::number(value);
}

QString TrimmedStr(qint64 value)
{
    return QString::number(value);
}

double Val(QStringView text)
{
    text = text.trimmed();
    if (text.startsWith("&H"_L1, Qt::CaseInsensitive)) return HexadecimalValue(text.sliced(2));
    const double value = text.first(NumberLength(text)).toDouble();
    return std::clamp(value, std::numeric_limits<double>::lowest(), std::numeric_limits<double>::max());
}

std::int16_t CInt(qint64 value)
{
    using Limits = std::numeric_limits<std::int16_t>;
    if (value < Limits::min() || value > Limits::max()) throw RunTimeError{errors::Overflow, u"Overflow"_s};
    return static_cast<std::int16_t>(value);
}

std::int16_t IntegerOf(QStringView text)
{
    const double value = std::nearbyint(Val(text));
    if (std::abs(value) > 1e9) throw RunTimeError{errors::Overflow, u"Overflow"_s};
    return CInt(static_cast<qint64>(value));
}
