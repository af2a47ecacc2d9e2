// A score as the content of a file.
#pragma once

#include <QByteArray>

struct Score;

// MIDI of type 1: a track for the tempo, and one for each voice.
QByteArray MidiOf(const Score& score);

// Samples of 16 bits, 44,100 a second, one channel. Empty if an instrument has no tones.
QByteArray WaveOf(const Score& score);
