// Checks a sound before it goes to the mixer, which plays silence for invalid sounds and trusts every number of a
// header.
#pragma once

#include <QByteArray>

namespace sound {
// Why a sound does not play, as mciSendStringA returns it. 0 is success.
enum Error : int
{
    UnknownCommand = 1,
    FileNotFound,
    NotMidi,
    TooLarge,
    AlreadyOpen,
    NotOpen,
    NoDevice,
    NotPlayable
};
} // namespace sound

struct SoundFile
{
    QByteArray Content;
    int Fault; // 0 or a sound::Error; then Content is empty
};

// The path may be in any letter case. Returns a wave of at most ten minutes, with its lengths corrected.
SoundFile ReadWave(const QString& path);
// Returns a MIDI file that has all the tracks of its header.
SoundFile ReadMidi(const QString& path);
