// The tunes of alarms: sound files in the Media directory, named without a path. No windows.
#pragma once

#include <QStringList>

// All waves by name, then all MIDI files by name.
QStringList ListTunes();

// Starts the tune and returns at once. Returns why music cannot play, else an empty text; a wave that fails is silent.
// A name that does not end in ".wav" counts as music.
QString PlayTune(const QString& tune);

// Ends music. A wave plays to its end.
void StopTune(const QString& tune);
