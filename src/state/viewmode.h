// The shown view. The calendar view implements it; lower floors ask through it.
#pragma once

#include "state/calendarstate.h"

#include <ranges>

class ViewMode
{
public:
    static constexpr int Day = 1; // no command sets it: the day view is a window of its own
    static constexpr int Week = 2;
    static constexpr int Month = 3;

    virtual int GetViewMode() const = 0;

protected:
    ~ViewMode() = default;
};

// First to last cell of a view; empty for an unknown mode.
struct CellRange
{
    int first;
    int last;
    auto begin() const { return std::views::iota(first, last + 1).begin(); }
    auto end() const { return std::views::iota(first, last + 1).end(); }
};

constexpr CellRange CellsOf(int viewMode)
{
    switch (viewMode) {
    case ViewMode::Day:
        return {0, 0};
    case ViewMode::Week:
        return {FirstWeekCell, LastWeekCell};
    case ViewMode::Month:
        return {FirstMonthCell, LastMonthCell};
    default:
        return {1, 0};
    }
}
