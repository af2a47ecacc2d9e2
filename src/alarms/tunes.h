// The tunes of alarms: the sound files of the Media directory, known by their bare file names. No windows.
#pragma once

#include <QStringList>

// The waves by name, and after them the music by name.
QStringList ListTunes();

// Starts the tune and returns at once. The text tells why no music plays, else it is empty; of a wave that cannot be
// played nothing is told. Whatever does not end in ".wav" counts as music.
QString PlayTune(const QString& tune);

// Ends music. A wave plays on to its end.
void StopTune(const QString& tune);
