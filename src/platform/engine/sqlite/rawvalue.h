// Rows as they lie in a database's records, before they are values of a field's type.
#pragma once

#include <QByteArray>

#include <variant>
#include <vector>

// A text is a QByteArray: its bytes are kept as they are. No planner has other bytes; they count as a text too.
using RawValue = std::variant<std::monostate, qint64, double, QByteArray>;

struct RawRow
{
    qint64 id = 0;
    std::vector<RawValue> values;
    std::size_t wholeValues = 0; // so many from the first on are as they were; the next may be a cut text

    bool IsWhole() const { return wholeValues == values.size(); }
};
