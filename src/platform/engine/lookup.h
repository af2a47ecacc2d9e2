// How a place in an index is looked up: which rows come into question, in which order. Rows without a key come before
// all others in ascending order, behind them in descending order.
#pragma once

#include "platform/engine/store.h"

#include <QVarLengthArray>

// The rows of one kind, in the direction of the index or against it.
struct LookUp
{
    enum Key
    {
        Any,
        Equal, // to the place's, which is not null
        Greater,
        Less, // both leave rows without a key out
        None,
        Some
    };
    Key key;
    bool pastId; // beyond the place's id in the direction of the walk
    bool forward;

    bool BindsKey() const { return key == Equal || key == Greater || key == Less; }
};

// The look-ups to be made one after the other until one finds a row.
QVarLengthArray<LookUp, 3> LookUpsFor(const Index& index, From from, bool keyIsNull);
