// Every shipped tune plays through the program's own player: long enough to be noticed, without clipping, and not too
// long.
#include "recording.h"
#include "testmain.h"

#include <QDir>

class ShippedTunesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void EveryScoreHasItsTune()
    {
        const QStringList scores = QDir(QStringLiteral(SCORES_FOLDER)).entryList({u"*.score"_s});
        QVERIFY(scores.size() >= 8);
        for (const QString& score : scores) {
            const InRow row(this, score);
            const QString tune = QStringLiteral(TUNES_FOLDER "/") + score.chopped(6);
            const Recording recording;
            if (tune.endsWith(u".wav"_s)) {
                QVERIFY(sndPlaySoundA(tune, sound::Asynchronous | sound::NoDefault));
            } else {
                QCOMPARE(mciSendStringA(u"open %1 type sequencer"_s.arg(tune)), 0);
                QCOMPARE(mciSendStringA(u"play "_s + tune), 0);
            }
            const QList<double> heard = recording.HearFromTheFirstSound(13);
            const auto last = std::find_if(heard.crbegin(), heard.crend(), Recording::IsSound).base();
            const double seconds = double(last - heard.cbegin()) / Recording::Rate;
            QVERIFY2(seconds > 3 && seconds < 12, qPrintable(QString::number(seconds)));
            QVERIFY2(Peak(heard) > 0.5 && Peak(heard) < 0.8, qPrintable(QString::number(Peak(heard))));
        }
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(ShippedTunesTest)
#include "shippedtunestest.moc"
