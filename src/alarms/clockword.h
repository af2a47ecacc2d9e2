// The word on the command line that starts the clock in the tray, without the window.
#pragma once

#include <QString>

inline const QString ClockWord = u"--clock"_s;
