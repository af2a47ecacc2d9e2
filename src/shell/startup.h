// Starts the program up to the main window on the screen, and ends it.
#pragma once

class QApplication;

// Returns true if the clock is to ring on in the tray.
bool RunOrrelin(QApplication& application);
