#include "platform/desktop/sound.h"

#include "platform/desktop/mixer.h"
#include "platform/desktop/soundfile.h"

#include <QCoreApplication>
#include <QHash>

namespace {
struct Sound
{
    Mixer Device;
    QHash<QString, QByteArray> Open; // the content of each open MIDI file by its path
    QString Played;                  // the one that plays or played last
};

// Made by the first call, so that the start of the program does not wait for sound. The device has to be given back
// before the libraries below it are taken down.
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

int PlaySequence(const QString& path)
{
    const auto open = TheSound().Open.constFind(path);
    if (open == TheSound().Open.cend()) return sound::NotOpen;
    TheSound().Played = path;
    return TheSound().Device.PlayMusic(*open);
}

int CloseSequence(const QString& path)
{
    if (!TheSound().Open.remove(path)) return sound::NotOpen;
    if (TheSound().Played == path) TheSound().Device.StopMusic();
    return 0;
}

constexpr struct
{
    QLatin1StringView Before, Behind; // the path
    int (*Do)(const QString& path);
} commands[] = {{QLatin1StringView("open "), QLatin1StringView(" type sequencer"), OpenSequence},
                {QLatin1StringView("play "), QLatin1StringView(""), PlaySequence},
                {QLatin1StringView("close "), QLatin1StringView(""), CloseSequence}};
} // namespace

bool sndPlaySoundA(const QString& path, unsigned flags)
{
    if (flags != (sound::Asynchronous | sound::NoDefault)) return false;
    const auto [content, fault] = ReadWave(path);
    return fault == 0 && TheSound().Device.PlayWave(content) == 0;
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
    switch (error) {
    case 0:
        return {};
    case sound::UnknownCommand:
        return QStringLiteral("The sound system does not know this command.");
    case sound::FileNotFound:
        return QStringLiteral("The tune's file cannot be found or read.");
    case sound::NotMidi:
        return QStringLiteral("The file is damaged or holds no music in the MIDI format.");
    case sound::TooLarge:
        return QStringLiteral("The file is too large to be played as a tune.");
    case sound::AlreadyOpen:
        return QStringLiteral("This tune is already open.");
    case sound::NotOpen:
        return QStringLiteral("This tune is not open.");
    case sound::NoDevice:
        return QStringLiteral("There is no sound device, or it cannot be used now.");
    default:
        return QStringLiteral("The music cannot be played. Its instruments may be missing: they come with the package "
                              "timgm6mb-soundfont. Or there is too little memory.");
    }
}

void sound::Close()
{
    TheSound().Device.Close();
    TheSound().Open.clear();
}
