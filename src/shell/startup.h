// Starts the program up to the main window on the screen, and ends it.
#pragma once

class QApplication;

int RunOrrelin(QApplication& application);
