// Processes events in the middle of a long routine.
#pragma once

class QWidget;

// Windows paint and timers fire. Clicks and keys wait, so that none reaches an unfinished window.
void DoEvents();

// Windows paint and take clicks and keys. Timers of the program and connections wait, since their handlers must not
// begin inside the routine.
void DoWindowEvents();

bool DoEventsRuns(); // for actions of timers and of the desktop, which must not begin inside another routine

// Shows and paints a notice before the work that it announces. Waits briefly for a slow screen. Takes no clicks and
// keys.
void ShowAndPaint(QWidget& window);
