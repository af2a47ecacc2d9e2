#include "platform/engine/jet/jetvalues.h"

#include "platform/engine/jet/jetstream.h"
#include "platform/runtime/runtimeerror.h"

#include <QDateTime>
#include <QtEndian>

#include <cmath>

namespace {
using Decoded = std::optional<QVariant>;

template <typename Number>
std::optional<Number> NumberOf(QByteArrayView bytes)
{
    if (bytes.size() != sizeof(Number)) return {};
    return qFromLittleEndian<Number>(bytes.data());
}

template <typename Number>
Decoded AsNumber(QByteArrayView bytes)
{
    const auto number = NumberOf<Number>(bytes);
    return number ? Decoded(QVariant::fromValue(*number)) : Decoded();
}

Decoded AsMoney(QByteArrayView bytes)
{
    const auto number = NumberOf<qint64>(bytes);
    return number ? Decoded(static_cast<double>(*number) / 10000) : Decoded();
}

// Days since 1899-12-30. Before that day the fraction still counts forward.
Decoded AsDate(QByteArrayView bytes)
{
    constexpr double MillisecondsPerDay = 86400000;
    constexpr double FirstDay = -657434, LastDay = 2958465; // years 100 to 9999
    const auto days = NumberOf<double>(bytes);
    if (!days || !(*days >= FirstDay && *days < LastDay + 1)) return {};
    const double whole = std::trunc(*days);
    const QDateTime day(QDate(1899, 12, 30).addDays(static_cast<qint64>(whole)), QTime(0, 0), Qt::UTC);
    return day.addMSecs(std::llround(std::abs(*days - whole) * MillisecondsPerDay));
}

Decoded Plain(int type, QByteArrayView bytes, const JetEncoding& encoding)
{
    switch (type) {
    case jetstream::Boolean:
        return bytes.size() == 1 ? Decoded(bytes[0] != '\0') : Decoded();
    case jetstream::Byte:
        return bytes.size() == 1 ? Decoded(int{static_cast<uchar>(bytes[0])}) : Decoded();
    case jetstream::Integer:
        return AsNumber<qint16>(bytes);
    case jetstream::Long:
        return AsNumber<qint32>(bytes);
    case jetstream::Money:
        return AsMoney(bytes);
    case jetstream::Single:
        return AsNumber<float>(bytes);
    case jetstream::Double:
        return AsNumber<double>(bytes);
    case jetstream::Date:
        return AsDate(bytes);
    case jetstream::Text:
    case jetstream::Memo:
        if (const auto text = DecodeJetText(bytes, encoding)) return *text;
    }
    return {};
}
} // namespace

namespace jetvalues {
Decoded Decode(const JetColumn& column, QByteArrayView bytes, const JetEncoding& encoding, const Field& field)
{
    if (field.Type == dbMemo && (column.Type == jetstream::Memo || column.Type == jetstream::Text)) {
        const auto memo = DecodeJetMemo(bytes, encoding);
        return memo ? Decoded(*memo) : Decoded();
    }
    const Decoded plain = Plain(column.Type, bytes, encoding);
    if (!plain || (field.Type == dbText && plain->toString().size() > field.Size)) return {};
    try {
        return AsFieldValue(field, *plain);
    } catch (const RunTimeError&) {
        return {}; // a text instead of a number
    }
}
} // namespace jetvalues
