// The tunes of alarms: sound files in the Media directory, named without a path. No windows.
#pragma once

#include <QStringList>

// All waves by name, then all MIDI files by name.
QStringList ListTunes();

struct TuneManner
{
    int volume; // percent
    bool repeats;
};
TuneManner UsualManner(); // with the person's volume, once

// Starts the tune and returns at once. Returns why music cannot play, else an empty text; a wave that fails is silent.
// A name that does not end in ".wav" counts as music.
QString PlayTune(const QString& tune, const TuneManner& manner = UsualManner());

// Ends music. A wave plays to its end, unless it repeats.
void StopTune(const QString& tune);
