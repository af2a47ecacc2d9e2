// The sound device by SDL_mixer, with a channel for waves and one for music. Knows no files.
#pragma once

#include <QBasicTimer>
#include <QByteArray>
#include <QObject>

struct Mix_Chunk;
struct _Mix_Music;

class Mixer : public QObject
{
public:
    // content comes from ReadWave and ReadMidi. Replaces what plays in the channel; returns 0 or a sound::Error.
    int PlayWave(const QByteArray& content, bool repeats);
    int PlayMusic(const QByteArray& content, bool repeats);
    void StopMusic();
    void StopRepeatedWave();
    void SetVolume(int percent) { m_volume = percent; } // of what plays from now on
    void Close();                                       // stops all sounds

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    bool Open();

    Mix_Chunk* m_wave = nullptr;
    _Mix_Music* m_music = nullptr;
    bool m_waveRepeats = false;
    int m_volume = 100; // percent
    bool m_open = false;
    bool m_idle = false; // at the last check
    QBasicTimer m_idleCheck;
};
