// Decodes single values of an old planner.
#pragma once

#include "platform/engine/jet/jetframes.h"
#include "platform/engine/tabledef.h"

namespace jetvalues {
// The value as the field stores it. None if the bytes are not valid for the column's type, or the value does not fit
// the field.
std::optional<QVariant> Decode(const JetColumn& column, QByteArrayView bytes, const JetEncoding& encoding,
                               const Field& field);
} // namespace jetvalues
