#include "instruments.h"
#include "score.h"
#include "writers.h"

#include <QDataStream>
#include <QIODevice>

#include <algorithm>

namespace {
constexpr int TicksOfBeat = 480;
constexpr int Drums = 9; // the channel that is not for notes
constexpr uchar NoteOff = 0x80, NoteOn = 0x90, ProgramChange = 0xC0;

struct Event
{
    int Tick;
    QByteArray Bytes;
};

int TickOf(double beats)
{
    return qRound(beats * TicksOfBeat);
}

QByteArray Bytes(std::initializer_list<int> values)
{
    QByteArray bytes;
    for (const int value : values)
        bytes += char(value);
    return bytes;
}

// Seven bits a byte, the highest first; all but the last byte carry a mark.
QByteArray Variable(int value)
{
    QByteArray bytes = Bytes({value & 0x7F});
    while (value >>= 7)
        bytes.prepend(char((value & 0x7F) | 0x80));
    return bytes;
}

QByteArray Chunk(const char* name, const QByteArray& content)
{
    QByteArray chunk(name);
    QDataStream(&chunk, QIODevice::Append) << quint32(content.size());
    return chunk + content;
}

// Events of one tick stand in the order given, and what ends a note before what begins one.
QByteArray Track(QList<Event> events, int end)
{
    std::ranges::stable_sort(events, [](const Event& a, const Event& b) {
        const auto begins = [](const Event& event) { return uchar(event.Bytes[0]) >> 4 == NoteOn >> 4; };
        return a.Tick != b.Tick ? a.Tick < b.Tick : begins(a) < begins(b);
    });
    events.append({end, Bytes({0xFF, 0x2F, 0})});
    QByteArray content;
    int now = 0;
    for (const Event& event : events) {
        content += Variable(event.Tick - now) + event.Bytes;
        now = event.Tick;
    }
    return Chunk("MTrk", content);
}

QByteArray TrackOf(const Voice& voice, int channel, int end)
{
    QList<Event> events = {{0, Bytes({ProgramChange | channel, voice.Played->Program})}};
    for (const Note& note : voice.Notes) {
        events.append({TickOf(note.Start), Bytes({NoteOn | channel, note.Key, voice.Loudness})});
        events.append({TickOf(note.Start + note.Length), Bytes({NoteOff | channel, note.Key, 0})});
    }
    return Track(events, end);
}
} // namespace

QByteArray MidiOf(const Score& score)
{
    const int end = TickOf(score.End() + score.Ending);
    const int beat = qRound(6e7 / score.Tempo); // microseconds
    QByteArray tracks = Track({{0, Bytes({0xFF, 0x51, 3, beat >> 16, beat >> 8 & 0xFF, beat & 0xFF})}}, end);
    int channel = 0;
    for (const Voice& voice : score.Voices) {
        if (channel == Drums) ++channel;
        tracks += TrackOf(voice, channel++, end);
    }
    QByteArray head;
    QDataStream(&head, QIODevice::WriteOnly) << quint16(1) << quint16(score.Voices.size() + 1) << quint16(TicksOfBeat);
    return Chunk("MThd", head) + tracks;
}
