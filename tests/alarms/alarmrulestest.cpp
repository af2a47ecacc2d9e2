#include "alarms/alarmrules.h"

#include "calendar/dateorder.h"
#include "platform/runtime/errortail.h"
#include "testmain.h"

#include <QLocale>
#include <QTest>
#include <QTime>

// Dates and times of alarms, without windows.
class AlarmRulesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { g_bErrorTrap = true; }

    // Each minute as the toolkit writes it in both ways.
    void aWholeDay()
    {
        for (QTime time(0, 0);;) {
            const QString stored = time.toString(u"HH:mm"_s);
            const QStringList shown = QLocale::c().toString(time, u"hh mm AP"_s).split(u' ');
            QCOMPARE(AlarmTimeText(shown[0], shown[1], shown[2] == u"PM"), stored);
            const ShownTime back = ShownTimeOf(stored);
            QCOMPARE(QStringList({back.hour, back.minute, back.pm ? u"PM"_s : u"AM"_s}), shown);
            QCOMPARE(AlarmTimeOf(QDateTime(QDate(1999, 7, 4), time.addSecs(59))), stored);
            time = time.addSecs(60);
            if (time == QTime(0, 0)) break;
        }
    }

    void times_data()
    {
        QTest::addColumn<QString>("hour");
        QTest::addColumn<QString>("minute");
        QTest::addColumn<int>("half"); // 2: none is chosen
        QTest::addColumn<QString>("time");
        const auto row = [](const char* name, const char* hour, const char* minute, int half, const char* time) {
            QTest::newRow(name) << QString::fromLatin1(hour) << QString::fromLatin1(minute) << half
                                << QString::fromLatin1(time);
        };
        row("hour 0", "00", "00", 0, "");
        row("hour 13", "13", "00", 1, "");
        row("minute 60", "12", "60", 0, "");
        row("empty", "__", "__", 2, "");
        row("no minute", "09", "__", 0, "09:00");
        row("one digit", "9_", "5_", 0, "09:05");
        row("no half, noon", "12", "30", 2, "12:30");
        row("no half, morning", "09", "30", 2, "09:30");
    }

    void times()
    {
        QFETCH(QString, hour);
        QFETCH(QString, minute);
        QFETCH(int, half);
        QTEST(AlarmTimeText(hour, minute, half == 2 ? HalfDay() : HalfDay(half == 1)), "time");
    }

    void steps_data()
    {
        using Step = QString (*)(const QString&);
        QTest::addColumn<Step>("step");
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("last");
        QTest::addColumn<int>("direction");
        QTest::addColumn<QString>("ofNothing");
        QTest::newRow("hour up") << Step(HourUp) << 1 << 12 << 1 << "01";
        QTest::newRow("hour down") << Step(HourDown) << 1 << 12 << -1 << "12";
        QTest::newRow("minute up") << Step(MinuteUp) << 0 << 59 << 1 << "01";
        QTest::newRow("minute down") << Step(MinuteDown) << 0 << 59 << -1 << "59";
    }

    void steps()
    {
        using Step = QString (*)(const QString&);
        QFETCH(Step, step);
        QFETCH(int, first);
        QFETCH(int, last);
        QFETCH(int, direction);
        QTEST(step(u"__"_s), "ofNothing");
        const int count = last - first + 1;
        for (int value = first; value <= last; ++value) {
            const int expected = first + (value - first + direction + count) % count;
            QCOMPARE(step(QString::number(value)), u"%1"_s.arg(expected, 2, 10, QChar(u'0')));
        }
    }

    void dates_data()
    {
        QTest::addColumn<int>("order");
        QTest::addColumn<QString>("box");
        QTest::newRow("month first") << 0 << "07/04/1999";
        QTest::newRow("day first") << 1 << "04/07/1999";
        QTest::newRow("year first") << 2 << "1999/07/04";
        QTest::newRow("unknown") << 7 << "07/04/1999";
    }

    void dates()
    {
        QFETCH(int, order);
        QFETCH(QString, box);
        const DateOrder& dateOrder = DateOrderOf(order);
        QCOMPARE(dateOrder.EntryDate(box), u"07/04/1999"_s);
        QCOMPARE(dateOrder.BoxText(1999, 7, 4), box);
        QCOMPARE(fnAlarmDateKey(dateOrder, box), u"1999/7/4"_s);
        // The clock looks for the very key that the editor writes.
        QCOMPARE(fnAlarmDateKey(dateOrder, box), AlarmDateOf(QDateTime(QDate(1999, 7, 4), QTime(0, 0))));
        QCOMPARE(fnAlarmDateKey(dateOrder, dateOrder.BoxText(1999, 2, 31)), u"1999/2/31"_s);
    }
};

ORRELIN_TEST(AlarmRulesTest)
#include "alarmrulestest.moc"
