// Lets windows and timers run in the middle of a long routine.
#pragma once

class QWidget;

// Lets windows paint and timers fire. Clicks and keys wait, so that none reaches a half-built window.
void DoEvents();

bool DoEventsRuns(); // true: a timer or the desktop must not start a routine now

// Shows a notice and paints it before the work that it announces begins. Waits a moment for a slow screen. Handles no
// clicks and keys.
void ShowAndPaint(QWidget& window);
