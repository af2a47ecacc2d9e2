#include "platform/desktop/mixer.h"

#include "platform/desktop/soundfile.h"

#include <QLibrary>

#include <SDL.h>
#include <SDL_mixer.h>
#include <utility>

// A function of SDL_mixer or SDL. Load the library first.
#define SDL(name) reinterpret_cast<decltype(&::name)>(Library()->resolve(#name))

namespace {
constexpr int WaveChannel = 0;
constexpr SDL_AudioDeviceID FirstDevice = 2; // SDL's number for the first open device
constexpr int IdleCheck = 2000;              // milliseconds

void SayNothing(const char* /*file*/, int /*line*/, const char* /*function*/, int /*error*/, const char* /*format*/,
                ...)
{
}

// These libraries print errors to stderr; the program reports them itself.
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

bool Load(QLibrary& library)
{
    library.setLoadHints(QLibrary::PreventUnloadHint);
    if (!library.load()) return false;
    Silence(library);
    return true;
}

// Null if not installed. SDL_mixer needs some forty libraries, which would double the start-up time, so it is loaded by
// the first sound and then stays.
QLibrary* Library()
{
    static QLibrary library(u"SDL2_mixer-2.0"_s, 0);
    static const bool isLoaded = Load(library);
    return isLoaded ? &library : nullptr;
}

SDL_RWops* Stream(const QByteArray& content)
{
    return SDL(SDL_RWFromConstMem)(content.constData(), int(content.size()));
}

// Keeps the program's signal handlers; the desktop's volume control shows the name.
void SetHints()
{
    SDL(SDL_SetHint)(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL(SDL_SetHint)(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Orrelin");
}
} // namespace

bool Mixer::Open()
{
    if (!Library()) return false;
    if (m_open && SDL(SDL_GetAudioDeviceStatus)(FirstDevice) != SDL_AUDIO_PLAYING) Close();
    m_idle = false;
    if (m_open) return true;
    SetHints();
    m_open = SDL(Mix_OpenAudioDevice)(44100, AUDIO_S16SYS, 2, 1024, nullptr, 0) == 0;
    if (m_open)
        m_idleCheck.start(IdleCheck, this);
    else
        SDL(SDL_Quit)(); // the next try selects a sound system again
    return m_open;
}

int Mixer::PlayWave(const QByteArray& content, bool repeats)
{
    if (!Open()) return sound::NoDevice;
    Mix_Chunk* const wave = SDL(Mix_LoadWAV_RW)(Stream(content), 1);
    if (!wave) return sound::NotPlayable;
    SDL(Mix_FreeChunk)(std::exchange(m_wave, wave)); // also stops it
    SDL(Mix_Volume)(WaveChannel, m_volume * MIX_MAX_VOLUME / 100);
    m_waveRepeats = repeats;
    const int loops = repeats ? -1 : 0;
    return SDL(Mix_PlayChannelTimed)(WaveChannel, m_wave, loops, -1) == WaveChannel ? 0 : sound::NotPlayable;
}

void Mixer::StopRepeatedWave()
{
    if (m_open && std::exchange(m_waveRepeats, false)) SDL(Mix_HaltChannel)(WaveChannel);
}

int Mixer::PlayMusic(const QByteArray& content, bool repeats)
{
    if (!Open()) return sound::NoDevice;
    StopMusic();
    m_music = SDL(Mix_LoadMUSType_RW)(Stream(content), MUS_MID, 1);
    SDL(Mix_VolumeMusic)(m_volume * MIX_MAX_VOLUME / 100);
    return m_music && SDL(Mix_PlayMusic)(m_music, repeats ? -1 : 0) == 0 ? 0 : sound::NotPlayable;
}

void Mixer::StopMusic()
{
    if (m_music) SDL(Mix_FreeMusic)(std::exchange(m_music, nullptr));
}

void Mixer::Close()
{
    m_idleCheck.stop();
    if (!std::exchange(m_open, false)) return;
    StopMusic();
    SDL(Mix_FreeChunk)(std::exchange(m_wave, nullptr));
    SDL(Mix_CloseAudio)();
    SDL(Mix_Quit)();
    SDL(SDL_Quit)();
}

// An open device causes wakeups all day, and alarms are rare.
void Mixer::timerEvent(QTimerEvent*)
{
    const bool idle = SDL(Mix_Playing)(WaveChannel) == 0 && SDL(Mix_PlayingMusic)() == 0;
    // At the first check the end of a sound may still be buffered.
    if (std::exchange(m_idle, idle) && idle) Close();
}
