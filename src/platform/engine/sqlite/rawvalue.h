// Rows as a database's records hold them, before conversion to the types of the fields.
#pragma once

#include <QByteArray>

#include <variant>
#include <vector>

// A text is a QByteArray, so that its bytes stay as they are. Planners have no blobs; one would count as a text.
using RawValue = std::variant<std::monostate, qint64, double, QByteArray>;

struct RawRow
{
    qint64 id = 0;
    std::vector<RawValue> values;
    std::size_t wholeValues = 0; // the first so many values are intact; the next may be a cut text

    bool IsWhole() const { return wholeValues == values.size(); }
};
