// The difference of two days. Plain computation.
#pragma once

#include "state/moddate.h"

// Reads "MM/DD/YYYY" only; empty if the grid has no such day.
std::optional<GridDay> DayOfText(const QString& text);

enum class DateUnit
{
    Day,
    Week, // begins on Sunday: counts Sundays
    Month // counts months begun
};

// From the first day to the second; negative if the second is earlier. Days are those of the true calendar: a February
// 29 that it does not have counts as March 1, like its weekday.
int DateDifferenceOf(DateUnit unit, const GridDay& from, const GridDay& to);
