#include "platform/desktop/mixer.h"

#include "platform/desktop/mixerlibrary.h"
#include "platform/desktop/sounderror.h"

#include <utility>

namespace {
constexpr int WaveChannel = 0;
constexpr SDL_AudioDeviceID FirstDevice = 2; // SDL's number for the device that is opened while no other is
constexpr int IdleCheck = 2000;              // milliseconds

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
    const MixerLibrary* const sdl = MixerLibrary::Load();
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
    const MixerLibrary& sdl = *MixerLibrary::Load();
    Mix_Chunk* const wave = sdl.Mix_LoadWAV_RW(Stream(sdl, content), 1);
    if (!wave) return sound::NotPlayable;
    sdl.Mix_FreeChunk(std::exchange(m_wave, wave)); // which also ends it
    return sdl.Mix_PlayChannelTimed(WaveChannel, m_wave, 0, -1) == WaveChannel ? 0 : sound::NotPlayable;
}

int Mixer::PlayMusic(const QByteArray& content)
{
    if (!Open()) return sound::NoDevice;
    const MixerLibrary& sdl = *MixerLibrary::Load();
    StopMusic();
    m_music = sdl.Mix_LoadMUSType_RW(Stream(sdl, content), MUS_MID, 1);
    return m_music && sdl.Mix_PlayMusic(m_music, 0) == 0 ? 0 : sound::NotPlayable;
}

void Mixer::StopMusic()
{
    if (m_music) MixerLibrary::Load()->Mix_FreeMusic(std::exchange(m_music, nullptr));
}

void Mixer::Close()
{
    m_idleCheck.stop();
    if (!std::exchange(m_open, false)) return;
    const MixerLibrary& sdl = *MixerLibrary::Load();
    StopMusic();
    sdl.Mix_FreeChunk(std::exchange(m_wave, nullptr));
    sdl.Mix_CloseAudio();
    sdl.Mix_Quit();
    sdl.SDL_Quit();
}

// An open device costs wakeups all day, and alarms are rare.
void Mixer::timerEvent(QTimerEvent*)
{
    const MixerLibrary& sdl = *MixerLibrary::Load();
    const bool idle = sdl.Mix_Playing(WaveChannel) == 0 && sdl.Mix_PlayingMusic() == 0;
    // At the first check the end of a sound may still be on its way to the ear.
    if (std::exchange(m_idle, idle) && idle) Close();
}
