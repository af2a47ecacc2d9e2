// Records the program's sound: a driver of the sound library writes the samples into a file, about twenty times as fast
// as they would play.
#pragma once

#include "files.h"
#include "platform/desktop/sound.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

class Recording
{
public:
    static constexpr double Rate = 44100;

    Recording()
    {
        sound::Close();
        qputenv("SDL_AUDIODRIVER", "disk");
        qputenv("SDL_DISKAUDIODELAY", "1");
        qputenv("SDL_DISKAUDIOFILE", QFile::encodeName(m_file));
    }
    ~Recording() { sound::Close(); }
    Q_DISABLE_COPY_MOVE(Recording)

    QString File() const { return m_file; }
    bool IsOpen() const // by this process
    {
        const auto files = QDir(u"/proc/self/fd"_s).entryInfoList(QDir::Files | QDir::System);
        return std::ranges::any_of(files, [this](const QFileInfo& file) { return file.symLinkTarget() == m_file; });
    }

    // The sound from now on: the left channel, 1 is full scale.
    QList<double> Hear(double seconds) const
    {
        constexpr qint64 UnderWay = 4096; // samples that may be mixed and not yet written
        return Samples(QFile(m_file).size() / Frame + UnderWay, seconds);
    }

    // Starts at the first sound, which may already be over.
    QList<double> HearFromTheFirstSound(double seconds) const
    {
        qsizetype first = 0;
        const auto hasBegun = [&] {
            const QList<double> soFar = Samples(0, double(QFile(m_file).size() / Frame) / Rate);
            first = std::ranges::find_if(soFar, IsSound) - soFar.cbegin();
            return first < soFar.size() || !IsOpen();
        };
        Q_UNUSED(QTest::qWaitFor(hasBegun, LongestWait));
        return Samples(first, seconds);
    }

    static bool IsSound(double sample) { return std::abs(sample) > 0.002; }

private:
    static constexpr qint64 Frame = 4;        // bytes
    static constexpr int LongestWait = 60000; // milliseconds

    // Fills up with silence if the device was closed.
    QList<double> Samples(qint64 from, double seconds) const
    {
        const auto count = qsizetype(seconds * Rate);
        QFile file(m_file);
        Q_UNUSED(QTest::qWaitFor([&] { return file.size() >= (from + count) * Frame || !IsOpen(); }, LongestWait));
        QList<double> samples;
        if (!file.open(QIODevice::ReadOnly) || !file.seek(from * Frame)) return samples;
        const QByteArray content = file.read(count * Frame);
        for (qsizetype i = 0; i + Frame <= content.size(); i += Frame)
            samples += *reinterpret_cast<const qint16*>(content.data() + i) / 32768.0;
        samples.resize(count);
        return samples;
    }

    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath(u"samples"_s);
};

inline double Peak(const QList<double>& samples)
{
    double peak = 0;
    for (const double sample : samples)
        peak = std::max(peak, std::abs(sample));
    return peak;
}

// The amplitude of one frequency in the samples.
inline double Tone(const QList<double>& samples, double hertz)
{
    std::complex<double> sum = 0;
    for (qsizetype i = 0; i < samples.size(); ++i)
        sum += std::polar(samples[i], -2 * std::numbers::pi * hertz * double(i) / Recording::Rate);
    return 2 * std::abs(sum) / double(samples.size());
}

// A MIDI file with one flute note of so many beats, each half a second.
inline QByteArray MidiNote(int key, int beats = 200)
{
    QByteArray track = QByteArray::fromHex("00c049") + QByteArray::fromHex("0090") + char(key) + char(110);
    const int ticks = beats * 96;
    track += char(0x80 | ticks >> 14) + QByteArray(1, char(0x80 | (ticks >> 7 & 0x7F))) + char(ticks & 0x7F);
    track += QByteArray::fromHex("80") + char(key) + QByteArray::fromHex("0000ff2f00");
    return QByteArray::fromHex("4d54686400000006000000010060") + QByteArray::fromHex("4d54726b000000") +
           char(track.size()) + track;
}

struct WaveForm
{
    int Channels = 1, Rate = 44100, Bits = 16;
};

// A wave file with a sine at half the full scale.
inline QByteArray WaveTone(double hertz, double seconds = 30, const WaveForm& form = {})
{
    QByteArray data;
    const auto number = [](int value, int bytes) { // little-endian, as the machine
        return QByteArray(reinterpret_cast<const char*>(&value), bytes);
    };
    for (int i = 0; i < int(seconds * form.Rate) * form.Channels; ++i) {
        const double value = 0.5 * std::sin(2 * std::numbers::pi * hertz * (i / form.Channels) / form.Rate);
        data += form.Bits == 16 ? number(int(value * 32767), 2) : number(int(128 + value * 127), 1);
    }
    const int frame = form.Channels * form.Bits / 8;
    return "RIFF" + number(36 + int(data.size()), 4) + "WAVEfmt " + number(16, 4) + number(1, 2) +
           number(form.Channels, 2) + number(form.Rate, 4) + number(form.Rate * frame, 4) + number(frame, 2) +
           number(form.Bits, 2) + "data" + number(int(data.size()), 4) + data;
}
