#include "alarms/alarmrules.h"

#include "testmain.h"

#include <QDateTime>
#include <QLocale>
#include <QTest>

// Times of alarms.
class AlarmRulesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Every minute, in both formats of the toolkit.
    void aWholeDay()
    {
        for (int minute = 0; minute < 24 * 60; ++minute) {
            const QTime time = QTime(0, 0).addSecs(minute * 60);
            const QString stored = time.toString(u"HH:mm"_s);
            const QStringList shown = QLocale::c().toString(time, u"hh mm AP"_s).split(u' ');
            QCOMPARE(AlarmTimeText(shown[0], shown[1], shown[2] == u"PM"), stored);
            const ShownTime back = ShownTimeOf(stored);
            QCOMPARE(QStringList({back.hour, back.minute, back.pm ? u"PM"_s : u"AM"_s}), shown);
        }
    }

    void oddTimes()
    {
        const HalfDay none, am = false, pm = true;
        QCOMPARE(AlarmTimeText(u"00"_s, u"00"_s, am), QString());
        QCOMPARE(AlarmTimeText(u"13"_s, u"00"_s, pm), QString());
        QCOMPARE(AlarmTimeText(u"12"_s, u"60"_s, am), QString());
        QCOMPARE(AlarmTimeText(u"__"_s, u"__"_s, none), QString());
        QCOMPARE(AlarmTimeText(u"09"_s, u"__"_s, am), u"09:00"_s);
        QCOMPARE(AlarmTimeText(u"9_"_s, u"5_"_s, am), u"09:05"_s);
        QCOMPARE(AlarmTimeText(u"12"_s, u"30"_s, none), u"12:30"_s);
        QCOMPARE(AlarmTimeText(u"09"_s, u"30"_s, none), u"09:30"_s);
    }

    // Days are compared by their numbers, not as texts.
    void aMinuteIsOverWhenTheNextBegins()
    {
        const QDateTime now(QDate(1999, 10, 9), QTime(9, 30, 59));
        for (const auto& [date, time, isOver] : {std::tuple("1999/10/9", "09:29", true),
                                                 {"1999/10/9", "09:30", false},
                                                 {"1999/10/8", "23:59", true},
                                                 {"1999/10/10", "00:00", false},
                                                 {"1999/9/10", "10:00", true},
                                                 {"999/12/31", "10:00", true},
                                                 {"2000/1/1", "09:00", false},
                                                 {"1999/2/31", "10:00", true}})
            QCOMPARE(IsOver(QString::fromLatin1(date), QString::fromLatin1(time), now), isOver);
    }
};

ORRELIN_TEST(AlarmRulesTest)
#include "alarmrulestest.moc"
