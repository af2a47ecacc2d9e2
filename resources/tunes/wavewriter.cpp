#include "instruments.h"
#include "score.h"
#include "writers.h"

#include <QDataStream>
#include <QIODevice>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {
constexpr int Rate = 44100;
constexpr double Attack = 0.004;    // seconds until a note is at its loudest; at once would click
constexpr double Silent = 8;        // decays, after which nothing of a partial can be heard
constexpr double Peak = 0.7;        // of full scale, 3 dB below
constexpr double Highest = 16000.0; // Hz; what lies above is heard by few and folds back

// 0 to 1 without a corner.
double Swell(double part)
{
    return part >= 1 ? 1 : (1 - std::cos(part * std::numbers::pi)) / 2;
}

void AddPartial(QList<double>& samples, qsizetype start, double frequency, const Partial& partial, double loudness)
{
    const double decay = partial.Decay * std::sqrt(440 * partial.Ratio / frequency);
    const auto length = std::min(qsizetype(decay * Silent * Rate), samples.size() - start);
    for (qsizetype i = 0; i < length; ++i) {
        const double seconds = double(i) / Rate;
        samples[start + i] += loudness * partial.Loudness * Swell(seconds / Attack) * std::exp(-seconds / decay) *
                              std::sin(2 * std::numbers::pi * frequency * seconds);
    }
}

// A struck note rings on, whatever its length.
void AddNote(QList<double>& samples, const Score& score, const Voice& voice, const Note& note)
{
    const auto start = qsizetype(score.Seconds(note.Start) * Rate);
    const double frequency = 440 * std::exp2((note.Key - 69) / 12.0);
    for (const Partial& partial : voice.Played->Partials) {
        if (frequency * partial.Ratio > Highest) continue;
        AddPartial(samples, start, frequency * partial.Ratio, partial, voice.Loudness / 127.0);
    }
}

// The last note still rings when the time is over: it fades over the ending.
void FadeOut(QList<double>& samples, qsizetype length)
{
    for (qsizetype i = 0; i < length; ++i)
        samples[samples.size() - 1 - i] *= Swell(double(i) / double(length));
}

QByteArray FileOf(const QList<double>& samples)
{
    const auto bytes = quint32(samples.size() * 2);
    const auto [low, high] = std::ranges::minmax(samples);
    const double scale = Peak * 32767 / std::max(-low, high);
    QByteArray file;
    QDataStream out(&file, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out.writeRawData("RIFF", 4);
    out << quint32(36 + bytes);
    out.writeRawData("WAVEfmt ", 8);
    out << quint32(16) << quint16(1) << quint16(1) << quint32(Rate) << quint32(Rate * 2) << quint16(2) << quint16(16);
    out.writeRawData("data", 4);
    out << bytes;
    for (const double sample : samples)
        out << qint16(std::lround(sample * scale));
    return file;
}
} // namespace

QByteArray WaveOf(const Score& score)
{
    QList<double> samples(qsizetype(score.Seconds(score.End() + score.Ending) * Rate));
    for (const Voice& voice : score.Voices) {
        if (voice.Played->Partials.isEmpty()) return {};
        for (const Note& note : voice.Notes)
            AddNote(samples, score, voice, note);
    }
    FadeOut(samples, qsizetype(score.Seconds(score.Ending) * Rate));
    return FileOf(samples);
}
