#include "platform/desktop/soundfile.h"

#include "platform/desktop/filesystem.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

namespace {
// The synthesizer needs about fifty bytes for a note of four, so music is limited more than waves.
constexpr qint64 MostWaveBytes = 64 << 20, MostMidiBytes = 4 << 20;
constexpr double MostSeconds = 600; // a tenth of a gigabyte when mixed
constexpr qsizetype ChunkHead = 8, FileHead = 12;

// Files only: a pipe may never end.
SoundFile Read(const QString& path, qint64 mostBytes)
{
    QFile file(filesystem::Find(path));
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly)) return {{}, sound::FileNotFound};
    if (file.size() > mostBytes) return {{}, sound::TooLarge};
    return {file.read(file.size()), 0};
}

quint16 Little16(QByteArrayView bytes, qsizetype at)
{
    return qFromLittleEndian<quint16>(bytes.data() + at);
}

quint32 Little32(QByteArrayView bytes, qsizetype at)
{
    return qFromLittleEndian<quint32>(bytes.data() + at);
}

// Calls visit with the name and content of each chunk until it returns false. The last chunk may be cut.
template <typename Length, typename Visit>
void ForEachChunk(QByteArrayView chunks, Length lengthOf, Visit visit)
{
    while (chunks.size() >= ChunkHead) {
        const qint64 length = lengthOf(chunks, 4);
        const QByteArrayView content = chunks.sliced(ChunkHead).first(qMin(length, chunks.size() - ChunkHead));
        if (!visit(chunks.first(4), content, length == content.size())) return;
        chunks = chunks.sliced(ChunkHead + content.size());
    }
}

// The mixer allocates by these numbers: at one sample a second a small file would fill the memory.
bool IsFormatOfWave(QByteArrayView format)
{
    if (format.size() < 16) return false;
    const int channels = Little16(format, 2), bits = Little16(format, 14);
    const quint32 rate = Little32(format, 4);
    return channels >= 1 && channels <= 8 && rate >= 1000 && rate <= 384000 && bits >= 4 && bits <= 64;
}

double Seconds(QByteArrayView format, qsizetype bytes)
{
    return bytes * 8.0 / Little16(format, 2) / Little16(format, 14) / Little32(format, 4);
}

QByteArray Little(qsizetype number)
{
    QByteArray bytes(4, '\0');
    qToLittleEndian(quint32(number), bytes.data());
    return bytes;
}

// A wave of the two relevant chunks with true lengths, since the mixer allocates by them before it reads.
QByteArray HonestWave(const QByteArray& format, const QByteArray& samples)
{
    const QByteArray chunks = "WAVEfmt " + Little(format.size()) + format + "data" + Little(samples.size()) + samples;
    return "RIFF" + Little(chunks.size()) + chunks;
}

// Empty if it is no wave. Chunks begin at even offsets; a final padding byte may be missing.
QByteArray WaveOf(QByteArrayView file)
{
    if (!file.startsWith("RIFF") || file.size() < FileHead || file.sliced(8, 4) != "WAVE") return {};
    QByteArrayView format, samples;
    const auto evenLength = [](QByteArrayView chunk, qsizetype at) {
        return qint64(Little32(chunk, at)) + Little32(chunk, at) % 2;
    };
    ForEachChunk(file.sliced(FileHead), evenLength, [&](QByteArrayView name, QByteArrayView content, bool) {
        if (name == "fmt ") format = content;
        if (name == "data") samples = content;
        return name != "data";
    });
    const bool good = IsFormatOfWave(format) && Seconds(format, samples.size()) <= MostSeconds;
    return good ? HonestWave(format.toByteArray(), samples.toByteArray()) : QByteArray();
}

// The synthesizer plays nothing if a track is missing, and does not support time in film frames.
bool IsMidi(QByteArrayView file)
{
    const auto length = [](QByteArrayView chunk, qsizetype at) {
        return qint64(qFromBigEndian<quint32>(chunk.data() + at));
    };
    int tracks = 0, promised = 0;
    ForEachChunk(file, length, [&](QByteArrayView name, QByteArrayView content, bool whole) {
        if (name == "MThd" && promised == 0 && content.size() >= 6 && qFromBigEndian<qint16>(content.data() + 4) > 0)
            promised = qFromBigEndian<quint16>(content.data() + 2);
        else if (name == "MTrk" && whole)
            ++tracks;
        return whole && promised > 0;
    });
    return promised > 0 && tracks >= promised;
}
} // namespace

SoundFile ReadWave(const QString& path)
{
    SoundFile file = Read(path, MostWaveBytes);
    if (file.Fault != 0) return file;
    file.Content = WaveOf(file.Content);
    return file.Content.isEmpty() ? SoundFile{{}, sound::NotPlayable} : file;
}

SoundFile ReadMidi(const QString& path)
{
    const SoundFile file = Read(path, MostMidiBytes);
    return file.Fault != 0 || IsMidi(file.Content) ? file : SoundFile{{}, sound::NotMidi};
}
