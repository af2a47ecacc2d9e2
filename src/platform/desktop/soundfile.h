// Checks sound files for the mixer, which plays silence for invalid files and trusts every number in a header.
#pragma once

#include <QByteArray>

namespace sound {
// Results of mciSendStringA; 0 is success.
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

// The path may have any letter case. A wave lasts at most ten minutes; its lengths are corrected.
SoundFile ReadWave(const QString& path);
// A MIDI file must contain all tracks that its header announces.
SoundFile ReadMidi(const QString& path);
