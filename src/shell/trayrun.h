// The program while its window is closed, and the way between the two: each replaces the other in the same process.
#pragma once

#include <QStringList>

#include <optional>

class QApplication;

namespace trayrun {
inline const QString ClockWord = u"--clock"_s; // on the command line: without the window
inline const QString ShowWord = u"--show"_s;   // back from the tray

// What the next one needs to know. It stands behind the word.
struct HandOver
{
    QString minute;  // the last that has rung ("hh:mm"), so that it does not ring twice
    QString planner; // its file; empty for none
    bool isShared = false;
    QStringList wanted; // of the calendar: the key of a day, or files of a call

    QStringList Words(const QString& word) const;
};

// Runs the clock until the person ends it or wants the calendar. Returns the words with which the program is to be
// replaced, if it is.
QStringList RunClock(QApplication& application);

std::optional<HandOver> FromClock(); // none if the program does not come back from the tray

// True if a clock was running and has been asked to show the calendar.
bool HandedToClock();

// Replaces this program; returns only if that fails.
void Replace(const QStringList& words);
} // namespace trayrun
