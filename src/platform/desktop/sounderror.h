// Why a sound does not play; mciGetErrorStringA says it to a person.
#pragma once

namespace sound {
// What mciSendStringA answers; 0 is success.
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
