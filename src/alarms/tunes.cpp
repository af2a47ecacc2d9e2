#include "alarms/tunes.h"

#include "platform/desktop/folders.h"
#include "platform/desktop/sound.h"
#include "settings/settings.h"

#include <QDir>

#include <algorithm>

namespace {
const QLatin1StringView WaveEnding(".wav");

// A tune's name comes with the planner, perhaps from a stranger, so it must not lead to another folder. A name with a
// slash gives an empty path, which plays nothing.
QString PathOf(const QString& tune)
{
    return tune.contains(u'/') ? QString() : folders::MediaDirectory() + u'/' + tune;
}
} // namespace

QStringList ListTunes()
{
    // The name filters ignore letter case.
    const QDir media(folders::MediaDirectory());
    const auto sorted = QDir::Name | QDir::IgnoreCase;
    return media.entryList({u"*.wav"_s}, QDir::Files, sorted) + media.entryList({u"*.mid"_s}, QDir::Files, sorted);
}

TuneManner UsualManner()
{
    return {Read(settings::TuneVolume), false};
}

QString PlayTune(const QString& tune, const TuneManner& manner)
{
    sound::SetVolume(std::clamp(manner.volume, 0, 100));
    const QString path = PathOf(tune);
    if (tune.endsWith(WaveEnding, Qt::CaseInsensitive)) {
        sndPlaySoundA(path, sound::Asynchronous | sound::NoDefault | (manner.repeats ? sound::Loop : 0));
        return {};
    }
    mciSendStringA(u"close "_s + path);
    if (const int error = mciSendStringA(u"open "_s + path + u" type sequencer"_s)) return mciGetErrorStringA(error);
    return mciGetErrorStringA(mciSendStringA(u"play "_s + path + (manner.repeats ? u" repeat"_s : QString())));
}

void StopTune(const QString& tune)
{
    mciSendStringA(u"close "_s + PathOf(tune));
    sound::StopLoop();
}
