#include "recording.h"
#include "testmain.h"

#include <QTemporaryFile>

#include <sys/stat.h>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {
constexpr unsigned Usual = sound::Asynchronous | sound::NoDefault;

QString OpenText(const QString& path)
{
    return u"open %1 type sequencer"_s.arg(path);
}

int Open(const QString& path)
{
    return mciSendStringA(OpenText(path));
}

int Play(const QString& path)
{
    return mciSendStringA(u"play "_s + path);
}

int Close(const QString& path)
{
    return mciSendStringA(u"close "_s + path);
}

// The file with one byte replaced.
QByteArray With(QByteArray file, qsizetype at, char byte)
{
    file[at] = byte;
    return file;
}

// Captures the standard error output during its life.
class ErrorOutput
{
public:
    ErrorOutput() : m_before(dup(STDERR_FILENO))
    {
        Q_UNUSED(m_file.open());
        dup2(m_file.handle(), STDERR_FILENO);
    }
    ~ErrorOutput()
    {
        dup2(m_before, STDERR_FILENO);
        close(m_before);
    }
    Q_DISABLE_COPY_MOVE(ErrorOutput)
    QByteArray Text() const { return Content(m_file.fileName()); } // reads by name, since the handle is at the end

private:
    QTemporaryFile m_file;
    int m_before;
};
} // namespace

class SoundTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;
    QString m_a4 = Path("four forty.wav"), m_a5 = Path("eight eighty.wav"), m_music = Path("flute C6.mid");

    QString Path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }
    QString Written(const char* name, const QByteArray& content) const
    {
        SetContent(Path(name), content);
        return Path(name);
    }

private Q_SLOTS:
    void initTestCase()
    {
        SetContent(m_a4, WaveTone(440));
        SetContent(m_a5, WaveTone(880));
        SetContent(m_music, MidiNote(84));
    }

    void WavesSoundAtTheirPitch_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::newRow("8 bits") << WaveTone(440, 3, {1, 22050, 8});
        QTest::newRow("stereo at another rate") << WaveTone(440, 3, {2, 48000, 16});
        QTest::newRow("cut in the middle") << WaveTone(440, 6).chopped(3 * 88200);
        // No memory is allocated for missing samples: the sanitizer refuses so much at once.
        QTest::newRow("longer than it is") << With(WaveTone(440, 3), 43, 127);
    }

    void WavesSoundAtTheirPitch()
    {
        QFETCH(QByteArray, file);
        const Recording recording;
        QVERIFY(sndPlaySoundA(Written("Wave.wav", file), Usual));
        const QList<double> heard = recording.HearFromTheFirstSound(4), second = heard.first(44100);
        QVERIFY2(std::abs(Tone(second, 440) - 0.5) < 0.02, qPrintable(QString::number(Tone(second, 440))));
        QVERIFY(Tone(second, 452) < 0.02);
        const double ends = std::find_if(heard.crbegin(), heard.crend(), Recording::IsSound).base() - heard.cbegin();
        QVERIFY2(std::abs(ends / Recording::Rate - 3) < 0.02, qPrintable(QString::number(ends)));
    }

    void TheDeviceIsGivenBackAfterATune()
    {
        const Recording recording;
        QVERIFY(sndPlaySoundA(Written("short.wav", WaveTone(440, 0.2)), Usual));
        QVERIFY(recording.IsOpen());
        QTRY_VERIFY_WITH_TIMEOUT(!recording.IsOpen(), 30000);
        QVERIFY(Peak(recording.HearFromTheFirstSound(0.2)) > 0.4);
    }

    void AWaveReplacesAWave()
    {
        const Recording recording;
        QVERIFY(sndPlaySoundA(m_a4, Usual));
        QVERIFY(Tone(recording.Hear(0.5), 440) > 0.4);
        QVERIFY(sndPlaySoundA(m_a5, Usual));
        const QList<double> heard = recording.Hear(0.5);
        QVERIFY(Tone(heard, 880) > 0.4 && Tone(heard, 440) < 0.02);
        // A file that cannot be played does not stop the sound.
        QVERIFY(!sndPlaySoundA(Path("none.wav"), Usual));
        QVERIFY(!sndPlaySoundA(m_music, Usual));
        QVERIFY(Tone(recording.Hear(0.5), 880) > 0.4);
    }

    void StoppingEndsMusicAlone()
    {
        constexpr double C6 = 1046.5;
        const Recording recording;
        QVERIFY(sndPlaySoundA(m_a4, Usual));
        QCOMPARE(Open(m_music), 0);
        QVERIFY(Tone(recording.Hear(0.5), C6) < 0.002);
        QCOMPARE(Play(m_music), 0);
        const QList<double> both = recording.Hear(1);
        QVERIFY2(Tone(both, C6) > 0.02 && Tone(both, 440) > 0.4, qPrintable(QString::number(Tone(both, C6))));
        QVERIFY(Tone(both, C6) > 5 * Tone(both, 988));
        QCOMPARE(Close(m_a4), int(sound::NotOpen));
        QCOMPARE(Close(m_music), 0);
        const QList<double> wave = recording.Hear(1);
        QVERIFY(Tone(wave, C6) < 0.002 && Tone(wave, 440) > 0.4);
    }

    void OfSeveralTheOnePlayedLastIsHeard()
    {
        const QString low = Written("low.mid", MidiNote(72));
        const Recording recording;
        QCOMPARE(Open(low), 0);
        QCOMPARE(Open(m_music), 0);
        QCOMPARE(Play(m_music), 0);
        QVERIFY(Tone(recording.Hear(1), 1046.5) > 0.02);
        QCOMPARE(Play(low), 0);
        QCOMPARE(Close(m_music), 0);
        const QList<double> heard = recording.Hear(1);
        QVERIFY(Tone(heard, 523.3) > 0.02 && Tone(heard, 1046.5) < Tone(heard, 523.3));
    }

    void CommandsAreAnswered_data()
    {
        QTest::addColumn<QStringList>("commands");
        QTest::addColumn<int>("error"); // of the last command
        const auto openWith = [this](const char* name, const QByteArray& content) {
            return OpenText(Written(name, content));
        };
        const QString open = OpenText(m_music), play = u"play "_s + m_music;
        const QByteArray note = MidiNote(69);
        const auto row = [](const char* name, const QStringList& commands, int error) {
            QTest::newRow(name) << commands << error;
        };
        row("twice", {open, open}, sound::AlreadyOpen);
        row("not open", {play}, sound::NotOpen);
        row("closed", {open, u"close "_s + m_music, play}, sound::NotOpen);
        row("a folder", {OpenText(m_folder.path() + u'/')}, sound::FileNotFound);
        row("empty path", {OpenText({})}, sound::FileNotFound);
        row("other letter case", {OpenText(Path("FLUTE c6.MID"))}, 0);
        row("unknown", {u"pause "_s + m_music}, sound::UnknownCommand);
        row("no type", {u"open "_s + m_music}, sound::UnknownCommand);
        row("a wave", {OpenText(m_a4)}, sound::NotMidi);
        row("cut", {openWith("cut.mid", note.chopped(1))}, sound::NotMidi);
        row("more tracks than there are", {openWith("tracks.mid", With(note, 11, 2))}, sound::NotMidi);
        row("longer than it is", {openWith("longer.mid", With(note, 18, 127))}, sound::NotMidi);
        row("film frames", {openWith("frames.mid", With(note, 12, char(0xE7)))}, sound::NotMidi);
        row("too large", {openWith("large.mid", note + QByteArray(5 << 20, '\0'))}, sound::TooLarge);
    }

    void CommandsAreAnswered()
    {
        QFETCH(QStringList, commands);
        QFETCH(int, error);
        sound::Close();
        int answer = 0;
        for (const QString& command : commands)
            answer = mciSendStringA(command);
        QCOMPARE(answer, error);
        QCOMPARE(mciGetErrorStringA(answer).isEmpty(), error == 0);
    }

    void WavesThatLieAreRefused()
    {
        const Recording recording;
        const QByteArray wave = WaveTone(440, 1);
        const QByteArray lies[] = {WaveTone(440, 1000, {1, 1, 16}),   // one sample a second
                                   WaveTone(440, 1200, {1, 4000, 8}), // twenty minutes
                                   With(wave, 22, 0),                 // no channel
                                   With(wave, 23, 127),               // too many channels
                                   With(wave, 34, 0),                 // no bits
                                   With(wave, 20, 99),                // an unknown encoding
                                   wave.first(12) + wave.sliced(36),  // no format chunk
                                   wave.first(40),
                                   {}};
        for (const QByteArray& lie : lies)
            QVERIFY2(!sndPlaySoundA(Written("lie.wav", lie), Usual), lie.first(qMin(lie.size(), 44)).toHex());
    }

    // The next sound is heard whatever happened.
    void DamagedFilesDoNoHarm()
    {
        const Recording recording;
        const QByteArray wave = WaveTone(440, 0.1, {2, 22050, 16}), note = MidiNote(69);
        for (qsizetype at = 0; at < 60; ++at) {
            for (const char byte : {'\0', '\x7F', '\xFF', '\x01'})
                sndPlaySoundA(Written("damaged.wav", With(wave, at, byte)), Usual);
            sndPlaySoundA(Written("damaged.wav", wave.first(at)), Usual);
        }
        for (qsizetype at = 12; at < note.size(); at += 3) { // each file loads all instruments
            const QString damaged = Written("damaged.mid", With(note, at, at % 2 ? '\x7F' : '\xFF'));
            if (Open(damaged) == 0) QCOMPARE(Play(damaged), 0);
            Close(damaged);
        }
        QVERIFY(sndPlaySoundA(m_a4, Usual));
        QVERIFY(Tone(recording.Hear(0.5), 440) > 0.4);
    }

    void WithoutADeviceNothingIsPrinted()
    {
        const Recording recording;
        qputenv("AUDIODEV", "nosuch");
        for (const char* driver : {"nosuch", "alsa"}) { // the second driver's library writes messages
            qputenv("SDL_AUDIODRIVER", driver);
            ErrorOutput output;
            QVERIFY(!sndPlaySoundA(m_a4, Usual));
            QCOMPARE(Open(m_music), 0);
            QCOMPARE(Play(m_music), int(sound::NoDevice));
            QCOMPARE(Close(m_music), 0);
            QCOMPARE(output.Text(), QByteArray());
        }
        // The next play tries again.
        qputenv("SDL_AUDIODRIVER", "disk");
        QVERIFY(sndPlaySoundA(m_a4, Usual));
        QVERIFY(Tone(recording.Hear(0.5), 440) > 0.4);
    }

    void ADeviceThatWentAwayIsOpenedAgain()
    {
        const Recording recording;
        const QByteArray pipe = QFile::encodeName(Path("pipe"));
        QCOMPARE(mkfifo(pipe.constData(), S_IRUSR | S_IWUSR), 0);
        const int listener = open(pipe.constData(), O_RDONLY | O_NONBLOCK);
        qputenv("SDL_DISKAUDIOFILE", pipe);
        QVERIFY(sndPlaySoundA(m_a4, Usual));
        std::signal(SIGPIPE, SIG_IGN);
        close(listener); // from here on the device refuses samples
        qputenv("SDL_DISKAUDIOFILE", QFile::encodeName(recording.File()));
        QTRY_VERIFY(sndPlaySoundA(m_a4, Usual) && recording.IsOpen());
        QVERIFY(Tone(recording.Hear(0.5), 440) > 0.4);
    }

    void SignalsStayTheProgramsOwn()
    {
        const Recording recording;
        const auto before = std::signal(SIGTERM, SIG_DFL);
        const bool played = sndPlaySoundA(m_a4, Usual);
        const auto handler = std::signal(SIGTERM, before);
        QVERIFY(played && handler == SIG_DFL);
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(SoundTest)
#include "soundtest.moc"
