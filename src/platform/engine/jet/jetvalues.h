// Single values of an old planner.
#pragma once

#include "platform/engine/jet/jetframes.h"
#include "platform/engine/tabledef.h"

namespace jetvalues {
// The value as rows of the field hold it. Nothing where the bytes are no value of the column's type, or it does not fit
// the field.
std::optional<QVariant> Decode(const JetColumn& column, QByteArrayView bytes, const JetEncoding& encoding,
                               const Field& field);
} // namespace jetvalues
