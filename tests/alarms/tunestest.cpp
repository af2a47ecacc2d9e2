#include "alarms/tunes.h"

#include "platform/desktop/folders.h"
#include "recording.h"
#include "testmain.h"

class TunesTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_root;

    QString Media(const char* name) const { return folders::MediaDirectory() + u'/' + QString::fromUtf8(name); }

private Q_SLOTS:
    void init() { folders::SetRootForTests(m_root.path()); }
    void cleanup()
    {
        folders::SetRootForTests(QString());
        QVERIFY(QDir(m_root.filePath(u"data"_s)).removeRecursively());
    }

    void TheFolderBeginsWithTheShippedTunes()
    {
        QVERIFY(QDir(m_root.path()).mkpath(u"shipped/Media"_s));
        SetContent(m_root.filePath(u"shipped/Media/Chime.wav"_s), WaveTone(440, 1));
        QCOMPARE(ListTunes(), QStringList(u"Chime.wav"_s));
        QVERIFY(QFile::remove(Media("Chime.wav")));
        QCOMPARE(ListTunes(), QStringList());
        QVERIFY(QDir(m_root.filePath(u"shipped"_s)).removeRecursively());
    }

    void WavesAreListedBeforeMusic()
    {
        for (const char* name : {"b.mid", "A.MID", "z.Wav", "Y.wav", "notes.txt", "wav", "x.wav.bak"})
            SetContent(Media(name), "x");
        QVERIFY(QDir().mkdir(Media("folder.wav")));
        QCOMPARE(ListTunes().join(u' '), u"Y.wav z.Wav A.MID b.mid"_s);
    }

    void StoppingEndsMusicAndNoWave()
    {
        SetContent(Media("Long Wave.WAV"), WaveTone(440, 150)); // the recording of a busy machine may fall behind
        SetContent(Media("Flute.mid"), MidiNote(84));
        const Recording recording;
        QCOMPARE(PlayTune(u"Long Wave.WAV"_s), QString());
        for (int time = 0; time < 2; ++time) { // the second time the device is already open
            QCOMPARE(PlayTune(u"Flute.mid"_s), QString());
            QVERIFY(Tone(recording.Hear(1), 1046.5) > 0.02);
        }
        StopTune(u"Flute.mid"_s);
        StopTune(u"Long Wave.WAV"_s);
        const QList<double> heard = recording.Hear(1);
        QVERIFY(Tone(heard, 440) > 0.4 && Tone(heard, 1046.5) < 0.002);
        // A wave that repeats ends, too. Its volume is chosen.
        SetContent(Media("Short.wav"), WaveTone(440, 0.5));
        PlayTune(u"Short.wav"_s, {50, true});
        const double half = Tone(recording.Hear(3), 440);
        QVERIFY2(half > 0.2 && half < 0.3, qPrintable(QString::number(half)));
        StopTune(u"Short.wav"_s);
        QVERIFY(Tone(recording.Hear(1), 440) < 0.002);
    }

    // The name alone decides. A wave that cannot be played is silence.
    void WhatIsNoTuneIsTold()
    {
        for (const char* name : {"damaged.mid", "damaged.wav"})
            SetContent(Media(name), "no music");
        SetContent(Media("wave.snd"), WaveTone(440, 1));
        SetContent(Media("../outside.mid"), MidiNote(84));
        SetContent(Media("../outside.wav"), WaveTone(440));
        const Recording recording;
        for (const char* tune : {"", "..", "missing.mid", "../outside.mid", "..\\outside.mid", "/etc/passwd"})
            QCOMPARE(PlayTune(QString::fromLatin1(tune)), mciGetErrorStringA(sound::FileNotFound));
        for (const QString& tune : {u"damaged.mid"_s, u"wave.snd"_s})
            QCOMPARE(PlayTune(tune), mciGetErrorStringA(sound::NotMidi));
        for (const QString& tune : {u"missing.wav"_s, u"damaged.wav"_s, u"../outside.wav"_s})
            QCOMPARE(PlayTune(tune), QString());
        QVERIFY(!recording.IsOpen());
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(TunesTest)
#include "tunestest.moc"
