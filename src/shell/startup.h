// The order of things from the program's start to the main window on the screen, and its end.
#pragma once

class QApplication;

int RunOrrelin(QApplication& application);
