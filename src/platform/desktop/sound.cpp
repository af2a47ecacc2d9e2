#include "platform/desktop/sound.h"

#include "platform/desktop/mixer.h"

#include <QCoreApplication>
#include <QHash>

#include <algorithm>
#include <array>

namespace {
struct Sound
{
    Mixer Device;
    QHash<QString, QByteArray> Open; // contents of the open MIDI files by path
    QString Played;                  // played last
};

// Created on first use, so that it does not slow the start down. The device must be closed before its libraries are
// unloaded.
Sound& TheSound()
{
    static Sound sound;
    [[maybe_unused]] static const bool closedAtTheEnd = (qAddPostRoutine(sound::Close), true);
    return sound;
}

int OpenSequence(const QString& path)
{
    if (TheSound().Open.contains(path)) return sound::AlreadyOpen;
    const auto [content, fault] = ReadMidi(path);
    if (fault == 0) TheSound().Open.insert(path, content);
    return fault;
}

int Play(const QString& path, bool repeats)
{
    const auto open = TheSound().Open.constFind(path);
    if (open == TheSound().Open.cend()) return sound::NotOpen;
    TheSound().Played = path;
    return TheSound().Device.PlayMusic(*open, repeats);
}

int PlaySequence(const QString& path)
{
    return Play(path, false);
}

int RepeatSequence(const QString& path)
{
    return Play(path, true);
}

int CloseSequence(const QString& path)
{
    if (!TheSound().Open.contains(path)) return sound::NotOpen;
    if (TheSound().Played == path) TheSound().Device.StopMusic(); // before its content is freed
    TheSound().Open.remove(path);
    return 0;
}

constexpr struct
{
    QLatin1StringView Before, Behind; // what surrounds the path
    int (*Do)(const QString& path);
} commands[] = {{"open "_L1, " type sequencer"_L1, OpenSequence},
                {"play "_L1, " repeat"_L1, RepeatSequence},
                {"play "_L1, ""_L1, PlaySequence},
                {"close "_L1, ""_L1, CloseSequence}};

// By sound::Error; others count as the last.
constexpr std::array<const char16_t*, 9> texts{
    u"",
    u"The sound system does not know this command.",
    u"The tune's file cannot be found or read.",
    u"The file is damaged or holds no music in the MIDI format.",
    u"The file is too large to be played as a tune.",
    u"This tune is already open.",
    u"This tune is not open.",
    u"There is no sound device, or it cannot be used now.",
    u"The music cannot be played. Its instruments may be missing: they come with the package timgm6mb-soundfont. Or "
    u"there is too little memory.",
};
} // namespace

bool sndPlaySoundA(const QString& path, unsigned flags)
{
    if ((flags & ~sound::Loop) != (sound::Asynchronous | sound::NoDefault)) return false;
    const auto [content, fault] = ReadWave(path);
    return fault == 0 && TheSound().Device.PlayWave(content, flags & sound::Loop) == 0;
}

void sound::SetVolume(int percent)
{
    TheSound().Device.SetVolume(percent);
}

void sound::StopLoop()
{
    TheSound().Device.StopRepeatedWave();
}

int mciSendStringA(const QString& command)
{
    for (const auto& [before, behind, act] : commands) {
        if (command.size() < before.size() + behind.size()) continue;
        if (command.startsWith(before) && command.endsWith(behind))
            return act(command.sliced(before.size()).chopped(behind.size()));
    }
    return sound::UnknownCommand;
}

QString mciGetErrorStringA(int error)
{
    return QString::fromUtf16(texts[std::min(std::size_t(error), texts.size() - 1)]);
}

void sound::Close()
{
    TheSound().Device.Close();
    TheSound().Open.clear();
}
