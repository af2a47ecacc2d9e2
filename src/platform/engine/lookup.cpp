#include "platform/engine/lookup.h"

QVarLengthArray<LookUp, 3> LookUpsFor(const Index& index, From from, bool keyIsNull)
{
    const bool forward = from == From::First || from == From::AtKey || from == From::After;
    if (from == From::First || from == From::Last) return {{Rows::All, forward}};
    if (from == From::AtKey) return {{keyIsNull ? Rows::WithoutKey : Rows::OfKey, forward}};
    if (index.Fields.isEmpty()) return {{Rows::PastId, forward}};
    const bool ascending = IsDescending(index) != forward;
    QVarLengthArray<LookUp, 3> lookUps = {{keyIsNull ? Rows::WithoutKeyPast : Rows::OfKeyPast, forward}};
    if (!keyIsNull) lookUps.push_back({ascending ? Rows::Greater : Rows::Less, forward});
    if (keyIsNull && ascending) lookUps.push_back({Rows::WithKey, forward});
    if (!keyIsNull && !ascending) lookUps.push_back({Rows::WithoutKey, forward});
    return lookUps;
}

bool BindsKey(Rows rows)
{
    return rows == Rows::OfKey || rows == Rows::OfKeyPast || rows == Rows::Greater || rows == Rows::Less;
}

bool BindsId(Rows rows)
{
    return rows == Rows::OfKeyPast || rows == Rows::WithoutKeyPast || rows == Rows::PastId;
}
