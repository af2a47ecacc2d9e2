// Starts the program up to the main window on the screen, and ends it.
#pragma once

#include "shell/handover.h"

class QApplication;

// Returns the words with which the program is to be replaced, if the clock is to ring on in the tray. back: from there.
QStringList RunOrrelin(QApplication& application, const std::optional<HandOver>& back = {});
