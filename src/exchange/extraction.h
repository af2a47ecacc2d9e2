// Reads what an export takes from an open planner.
#pragma once

#include "exchange/extract.h"
#include "platform/engine/database.h"

#include <optional>

struct DaySpan // inclusive
{
    GridDay from, to;
};

// All of one state of the planner, whatever others write meanwhile. Without a span the whole planner. A span takes the
// memos of the months that lie wholly in it, and no recurring events. What no view shows is left out, for example a
// note under February 30. Raises the engine's errors; Cancelled.
Extract ExtractFrom(const Database& planner, const QString& title, const std::optional<DaySpan>& span);
// The notes and alarms of these days and memos alone.
Extract ExtractDays(const Database& planner, const QString& title, const QStringList& keys);
