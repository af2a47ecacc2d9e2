// What may be handed to the mixer: it plays silence for what is no sound, and believes every number of a header.
#pragma once

#include <QByteArray>

namespace sound {
// Why a sound does not play: what mciSendStringA answers. 0 is success.
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
    int Fault; // 0 or a sound::Error; then there is no content
};

// The path may be in any letter case. A wave is at most ten minutes long and comes with true lengths, whatever stood in
// the file.
SoundFile ReadWave(const QString& path);
// A MIDI file with all the tracks that it tells of.
SoundFile ReadMidi(const QString& path);
