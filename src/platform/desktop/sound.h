// Sound: one wave at a time, and music of MIDI files, each under the path of its file. Everything plays behind the
// program. The sound device is opened by the first play, and again by the next one if it was not there or went away.
#pragma once

#include "platform/desktop/soundfile.h"

#include <QString>

namespace sound {
// How a wave plays. There is no other way than both together.
inline constexpr unsigned Asynchronous = 1, NoDefault = 2;

// Ends all that plays and gives the device and the memory back; also the end of the application does.
void Close();
} // namespace sound

// Plays the wave file in place of one that still plays. False if nothing plays for it; what played goes on then.
bool sndPlaySoundA(const QString& path, unsigned flags);

// "open PATH type sequencer" reads a MIDI file, "play PATH" plays an open one from its beginning, "close PATH" ends it.
// The path may hold blanks and is not quoted. Any number may be open, the last one played is heard. Answers an Error.
int mciSendStringA(const QString& command);

// A sentence for a person; empty for 0.
QString mciGetErrorStringA(int error);
