// A moment for windows and timers in the middle of a long routine.
#pragma once

class QWidget;

// Lets windows paint and timers fire. Clicks and keys wait, so that none reaches a window that is half built.
void DoEvents();

bool DoEventsRuns(); // for what a timer or the desktop begins, and must not begin inside another routine

// Shows and paints a notice that must be on the screen before the work that it tells of begins, and waits a moment for
// the screen if that is slow. Takes in no clicks and keys.
void ShowAndPaint(QWidget& window);
