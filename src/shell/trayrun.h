// The program while its window is closed.
#pragma once

#include "shell/handover.h"

class QApplication;

namespace trayrun {
// Runs the clock until the person ends it or wants the calendar. Returns the words with which the program is to be
// replaced, if it is.
QStringList RunClock(QApplication& application, const HandOver& start);

// True if a clock was running and has been asked to show the calendar. Waits until that may be there, so that a double
// click starts nothing else.
bool AskClockForCalendar();
} // namespace trayrun
