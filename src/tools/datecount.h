// How far one day lies from another. Plain computation.
#pragma once

#include "state/moddate.h"

// "MM/DD/YYYY", and only so; empty for what is no day of the grid.
std::optional<GridDay> DayOfText(const QString& text);

enum class DateUnit
{
    Day,
    Week, // begins on Sunday: how many Sundays have come
    Month // how many times a month has begun
};

// From the first to the second; negative where that is the earlier one. Days are those of the true calendar: a 29th
// that it does not have is counted as the day behind the 28th, as its weekday is.
int DateDifferenceOf(DateUnit unit, const GridDay& from, const GridDay& to);
