// The functions of SDL_mixer and SDL that we call. The two bring some forty libraries along, which would double the
// time until the program's first line runs; so they are loaded when the first sound plays.
#pragma once

#include <SDL.h>
#include <SDL_mixer.h>

#define ORRELIN_MIXER_FUNCTIONS(X)                                                                                     \
    X(Mix_CloseAudio)                                                                                                  \
    X(Mix_FreeChunk)                                                                                                   \
    X(Mix_FreeMusic)                                                                                                   \
    X(Mix_LoadMUSType_RW)                                                                                              \
    X(Mix_LoadWAV_RW)                                                                                                  \
    X(Mix_OpenAudioDevice)                                                                                             \
    X(Mix_PlayChannelTimed)                                                                                            \
    X(Mix_PlayMusic)                                                                                                   \
    X(Mix_Playing)                                                                                                     \
    X(Mix_PlayingMusic)                                                                                                \
    X(Mix_Quit)                                                                                                        \
    X(SDL_GetAudioDeviceStatus)                                                                                        \
    X(SDL_Quit)                                                                                                        \
    X(SDL_RWFromConstMem)                                                                                              \
    X(SDL_SetHint)

struct MixerLibrary
{
#define ORRELIN_MIXER_FUNCTION(name) decltype(&::name) name = nullptr;
    ORRELIN_MIXER_FUNCTIONS(ORRELIN_MIXER_FUNCTION)
#undef ORRELIN_MIXER_FUNCTION

    // Null if the library is not installed. It stays loaded once it is.
    static const MixerLibrary* Load();
};
