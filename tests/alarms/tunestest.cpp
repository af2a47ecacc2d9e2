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
        SetContent(Media("Long Wave.WAV"), WaveTone(440));
        SetContent(Media("Flute.mid"), MidiNote(84));
        const Recording recording;
        QCOMPARE(PlayTune(u"Long Wave.WAV"_s), QString());
        for (int time = 0; time < 2; ++time) { // the second time it is open already
            QCOMPARE(PlayTune(u"Flute.mid"_s), QString());
            QVERIFY(Tone(recording.Hear(1), 1046.5) > 0.02);
        }
        StopTune(u"Flute.mid"_s);
        StopTune(u"Long Wave.WAV"_s);
        const QList<double> heard = recording.Hear(1);
        QVERIFY(Tone(heard, 440) > 0.4 && Tone(heard, 1046.5) < 0.002);
    }

    void WhatIsNoTuneIsTold_data()
    {
        QTest::addColumn<QString>("tune");
        QTest::addColumn<int>("error");
        const auto row = [](const char* tune, int error) { QTest::newRow(tune) << QString::fromUtf8(tune) << error; };
        row("missing.mid", sound::FileNotFound);
        row("missing.wav", 0); // silence
        row("damaged.mid", sound::NotMidi);
        row("damaged.wav", 0);
        row("wave.snd", sound::NotMidi); // only the name counts
        row("", sound::FileNotFound);
        row("..", sound::FileNotFound);
        row("../outside.mid", sound::FileNotFound);
        row("../outside.wav", 0);
        row("/etc/passwd", sound::FileNotFound);
        row("..\\outside.mid", sound::FileNotFound);
    }

    void WhatIsNoTuneIsTold()
    {
        QFETCH(QString, tune);
        QFETCH(int, error);
        for (const char* name : {"damaged.mid", "damaged.wav"})
            SetContent(Media(name), "no music");
        SetContent(Media("wave.snd"), WaveTone(440, 1));
        SetContent(Media("../outside.mid"), MidiNote(84));
        SetContent(Media("../outside.wav"), WaveTone(440));
        const Recording recording;
        QCOMPARE(PlayTune(tune), mciGetErrorStringA(error));
        QVERIFY(!recording.IsOpen()); // nothing went to the device
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(TunesTest)
#include "tunestest.moc"
