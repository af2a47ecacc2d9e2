// Finds the rules that recurring events follow in other calendars.
#pragma once

#include "exchange/extract.h"
#include "exchange/icalendarentry.h"

// For each event its rule, if the days that hold its text follow one. The text is then taken out of their notes, which
// may leave them blank. Else it stays there and the event has no rule: the planner does not know an event's step, and
// people change single days.
std::vector<std::optional<CalendarRule>> TakeRulesOutOf(Extract& extract);
