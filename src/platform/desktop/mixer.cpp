#include "platform/desktop/mixer.h"

#include "platform/desktop/sounderror.h"

#include <QLibrary>

#include <SDL.h>
#include <SDL_mixer.h>
#include <utility>

// The functions of SDL_mixer and SDL that we call. The two bring some forty libraries along, which would double the
// time until the program's first line runs; so they are loaded when the first sound plays.
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

namespace {
struct MixerLibrary
{
#define ORRELIN_MIXER_FUNCTION(name) decltype(&::name) name = nullptr;
    ORRELIN_MIXER_FUNCTIONS(ORRELIN_MIXER_FUNCTION)
#undef ORRELIN_MIXER_FUNCTION
};

constexpr int WaveChannel = 0;
constexpr SDL_AudioDeviceID FirstDevice = 2; // SDL's number for the device that is opened while no other is
constexpr int IdleCheck = 2000;              // milliseconds

void SayNothing(const char* /*file*/, int /*line*/, const char* /*function*/, int /*error*/, const char* /*format*/,
                ...)
{
}

// The libraries below write what they miss to the standard error output. A person is told by us instead.
void Silence(QLibrary& library)
{
    using SetSynthesizerLog = void* (*)(int level, void* function, void* data);
    constexpr int Levels = 5;
    const auto setSynthesizerLog = reinterpret_cast<SetSynthesizerLog>(library.resolve("fluid_set_log_function"));
    for (int level = 0; setSynthesizerLog && level < Levels; ++level)
        setSynthesizerLog(level, nullptr, nullptr);

    using SetDeviceLog = int (*)(decltype(&SayNothing));
    const auto setDeviceLog = reinterpret_cast<SetDeviceLog>(library.resolve("snd_lib_error_set_handler"));
    if (setDeviceLog) setDeviceLog(SayNothing);
}

std::optional<MixerLibrary> Loaded()
{
    QLibrary library(u"SDL2_mixer-2.0"_s, 0);
    library.setLoadHints(QLibrary::PreventUnloadHint);
    if (!library.load()) return {};
    MixerLibrary functions;
#define ORRELIN_MIXER_FUNCTION(name)                                                                                   \
    functions.name = reinterpret_cast<decltype(functions.name)>(library.resolve(#name));                               \
    if (!functions.name) return {};
    ORRELIN_MIXER_FUNCTIONS(ORRELIN_MIXER_FUNCTION)
#undef ORRELIN_MIXER_FUNCTION
    Silence(library);
    return functions;
}

// Null if the library is not installed. It stays loaded once it is.
const MixerLibrary* Library()
{
    static const std::optional<MixerLibrary> library = Loaded();
    return library ? &*library : nullptr;
}

SDL_RWops* Stream(const MixerLibrary& sdl, const QByteArray& content)
{
    return sdl.SDL_RWFromConstMem(content.constData(), int(content.size()));
}

// The signals are the program's own, and the volume control of the desktop shows the name.
void SetHints(const MixerLibrary& sdl)
{
    sdl.SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    sdl.SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Orrelin");
}
} // namespace

bool Mixer::Open()
{
    const MixerLibrary* const sdl = Library();
    if (!sdl) return false;
    if (m_open && sdl->SDL_GetAudioDeviceStatus(FirstDevice) != SDL_AUDIO_PLAYING) Close();
    m_idle = false;
    if (m_open) return true;
    SetHints(*sdl);
    m_open = sdl->Mix_OpenAudioDevice(44100, AUDIO_S16SYS, 2, 1024, nullptr, 0) == 0;
    if (m_open)
        m_idleCheck.start(IdleCheck, this);
    else
        sdl->SDL_Quit(); // the next try chooses anew among the sound systems: one may have come meanwhile
    return m_open;
}

int Mixer::PlayWave(const QByteArray& content)
{
    if (!Open()) return sound::NoDevice;
    const MixerLibrary& sdl = *Library();
    Mix_Chunk* const wave = sdl.Mix_LoadWAV_RW(Stream(sdl, content), 1);
    if (!wave) return sound::NotPlayable;
    sdl.Mix_FreeChunk(std::exchange(m_wave, wave)); // which also ends it
    return sdl.Mix_PlayChannelTimed(WaveChannel, m_wave, 0, -1) == WaveChannel ? 0 : sound::NotPlayable;
}

int Mixer::PlayMusic(const QByteArray& content)
{
    if (!Open()) return sound::NoDevice;
    const MixerLibrary& sdl = *Library();
    StopMusic();
    m_music = sdl.Mix_LoadMUSType_RW(Stream(sdl, content), MUS_MID, 1);
    return m_music && sdl.Mix_PlayMusic(m_music, 0) == 0 ? 0 : sound::NotPlayable;
}

void Mixer::StopMusic()
{
    if (m_music) Library()->Mix_FreeMusic(std::exchange(m_music, nullptr));
}

void Mixer::Close()
{
    m_idleCheck.stop();
    if (!std::exchange(m_open, false)) return;
    const MixerLibrary& sdl = *Library();
    StopMusic();
    sdl.Mix_FreeChunk(std::exchange(m_wave, nullptr));
    sdl.Mix_CloseAudio();
    sdl.Mix_Quit();
    sdl.SDL_Quit();
}

// An open device costs wakeups all day, and alarms are rare.
void Mixer::timerEvent(QTimerEvent*)
{
    const MixerLibrary& sdl = *Library();
    const bool idle = sdl.Mix_Playing(WaveChannel) == 0 && sdl.Mix_PlayingMusic() == 0;
    // At the first check the end of a sound may still be on its way to the ear.
    if (std::exchange(m_idle, idle) && idle) Close();
}
