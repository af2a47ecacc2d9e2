// How a place in an index is looked up: which rows come into question, in which order. Shared by the stores, so that
// all of them walk alike; rows without a key come before all others in ascending order, behind them in descending
// order.
#pragma once

#include "platform/engine/store.h"

#include <QVarLengthArray>

// Which rows a look-up considers, seen from the key and id of a place.
enum class Rows
{
    All,
    OfKey,          // binds the key, which is not null
    OfKeyPast,      // binds the key and the id: beyond it in the direction of the walk
    WithoutKeyPast, // binds the id, as PastId does
    PastId,         // where the index has no field
    Greater,        // binds the key; leaves rows without a key out, as Less does
    Less,
    WithoutKey,
    WithKey
};

struct LookUp
{
    Rows rows;
    bool forward; // in the index's own direction
};

// The look-ups to be made one after the other until one finds a row.
QVarLengthArray<LookUp, 3> LookUpsFor(const Index& index, From from, bool keyIsNull);
bool BindsKey(Rows rows);
bool BindsId(Rows rows);
