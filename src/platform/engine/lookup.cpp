#include "platform/engine/lookup.h"

QVarLengthArray<LookUp, 3> LookUpsFor(const Index& index, From from, bool keyIsNull)
{
    const bool forward = from == From::First || from == From::AtKey || from == From::After;
    const LookUp::Key ofKey = keyIsNull ? LookUp::None : LookUp::Equal;
    if (from == From::First || from == From::Last) return {{LookUp::Any, false, forward}};
    if (from == From::AtKey) return {{ofKey, false, forward}};
    if (index.Fields.isEmpty()) return {{LookUp::Any, true, forward}};
    const bool ascending = IsDescending(index) != forward;
    QVarLengthArray<LookUp, 3> lookUps = {{ofKey, true, forward}};
    if (!keyIsNull) lookUps.push_back({ascending ? LookUp::Greater : LookUp::Less, false, forward});
    if (keyIsNull == ascending) lookUps.push_back({keyIsNull ? LookUp::Some : LookUp::None, false, forward});
    return lookUps;
}
