// Plays one wave at a time, and MIDI files by path, in the background. The first play opens the sound device; later
// ones open it again if it was missing or is gone.
#pragma once

#include "platform/desktop/soundfile.h"

#include <QString>

namespace sound {
// Flags of sndPlaySoundA; the first two are always needed.
inline constexpr unsigned Asynchronous = 1, NoDefault = 2, Loop = 8;

void SetVolume(int percent); // of what plays from now on
void StopLoop();             // ends a wave that was played with Loop

// Stops all sounds and frees device and memory. Called at the end of the application too.
void Close();
} // namespace sound

// Plays the wave file instead of the present one. False: failed, and the present one goes on.
bool sndPlaySoundA(const QString& path, unsigned flags);

// Commands: "open PATH type sequencer" reads a MIDI file, "play PATH" plays it from the beginning, "play PATH
// repeat" again and again, "close PATH" ends it. The path is not quoted and may contain blanks. Several files may be
// open; the one played last is heard. Returns a sound::Error.
int mciSendStringA(const QString& command);

// The message for an error; empty for 0.
QString mciGetErrorStringA(int error);
