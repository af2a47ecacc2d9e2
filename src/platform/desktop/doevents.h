// A moment for windows and timers in the middle of a long routine.
#pragma once

// Lets windows paint and timers fire. Clicks and keys wait, so that none reaches a window that is half built.
void DoEvents();

bool DoEventsRuns(); // for what a timer or the desktop begins, and must not begin inside another routine
