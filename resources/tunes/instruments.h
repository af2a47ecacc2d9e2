// The instruments that a score may name: by General MIDI, and for those that are rendered to samples, by their tones.
#pragma once

#include <QList>
#include <QStringView>

struct Partial
{
    double Ratio;    // of its frequency to the note's
    double Loudness; // beside the others
    double Decay;    // seconds until it has lost two thirds, for a note of 440 Hz; higher notes die sooner
};

struct Instrument
{
    QLatin1StringView Name;
    int Program;             // of General MIDI, from 0
    QList<Partial> Partials; // empty: it is played by MIDI alone
};

const Instrument* FindInstrument(QStringView name); // null if there is none
