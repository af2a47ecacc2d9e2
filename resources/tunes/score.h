// A score is a text:
//
//     # a remark
//     tempo 120              beats a minute
//     ending 3               beats that ring on behind the last note
//     voice marimba 100      an instrument and its loudness, 1 to 127; all voices begin together
//     C5:1 Eb5:.5 F#5:1/2 | -:1 C4+E4+G4:2
//
// A note is its name with its octave (A4 is 440 Hz) and its length in beats, "-" a rest, "+" joins a chord. A bar line
// is for the eye alone.
#pragma once

#include <QList>
#include <QString>

struct Instrument;

struct Note
{
    double Start, Length; // in beats
    int Key;              // of MIDI, 69 for A4
};

struct Voice
{
    const Instrument* Played;
    int Loudness;
    QList<Note> Notes;
    double End = 0; // in beats, with the rests
};

struct Score
{
    double Tempo = 120, Ending = 2;
    QList<Voice> Voices;

    double End() const; // in beats, without the ending
    double Seconds(double beats) const { return beats * 60 / Tempo; }
};

// An error names the line; then the score is of no use.
Score ReadScore(const QString& text, QString* error);
