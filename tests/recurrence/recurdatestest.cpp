#include "recurrence/recurdates.h"

#include "testmain.h"

#include <QTest>

// The dates of recurring events.
class RecurDatesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void WritesIntoTheseDates_data()
    {
        QTest::addColumn<Frequency>("frequency");
        QTest::addColumn<int>("step"); // 0: those that it is taken out of
        QTest::addColumn<QString>("end");
        QTest::addColumn<QString>("dates"); // the start first
        const auto row = [](const char* name, Frequency frequency, int step, const char* end, const char* dates) {
            QTest::newRow(name) << frequency << step << QString::fromLatin1(end) << QString::fromLatin1(dates);
        };
        row("across the year", Frequency::Daily, 1, "2000/1/2", "1999/12/30 12/31 2000/1/1 1/2");
        row("one day", Frequency::Daily, 1, "1999/12/30", "1999/12/30");
        row("leap centuries", Frequency::Daily, 1, "1900/3/1", "1900/2/28 2/29 3/1");
        row("2100 too", Frequency::Daily, 2, "2100/3/3", "2100/2/27 2/29 3/2");
        row("30th of February", Frequency::Daily, 30, "1999/12/31", "1999/1/31 2/30");
        row("every month as long as the first", Frequency::Daily, 45, "1999/5/31", "1999/1/31 3/14 4/28");
        row("end of time", Frequency::Daily, 1, "9999/12/31", "9999/12/30 12/31");
        row("beyond it", Frequency::Yearly, 32767, "9999/12/31", "9999/12/30");
        row("week", Frequency::Weekly, 1, "1999/2/12", "1999/1/29 2/5 2/12");
        row("week, not the end", Frequency::Weekly, 1, "1999/2/11", "1999/1/29 2/5");
        row("29th of February", Frequency::Weekly, 5, "1999/4/30", "1999/1/25 2/29 4/8");
        row("weeks across months", Frequency::Weekly, 15, "1999/9/30", "1999/1/29 5/10 8/22");
        row("weeks at the end of time", Frequency::Weekly, 1, "9999/12/31", "9999/12/25");
        row("31st", Frequency::Monthly, 1, "1999/5/31", "1999/1/31 2/28 3/31 4/30 5/31");
        row("30th", Frequency::Monthly, 1, "1999/5/30", "1999/1/30 2/28 3/28 4/30 5/30");
        row("29th", Frequency::Monthly, 13, "2004/9/1", "1999/1/29 2000/2/29 2001/3/29 2002/4/29 2003/5/29 2004/6/29");
        row("quarters", Frequency::Monthly, 3, "2000/5/1", "1999/11/30 2000/2/29");
        row("cut once", Frequency::Monthly, 1, "1999/8/31",
            "1998/11/30 12/30 1999/1/30 2/28 3/28 4/30 5/30 6/30 7/30 8/30");
        row("every other year", Frequency::Yearly, 2, "2002/12/31", "1996/2/29 1998/2/28 2000/2/29 2002/2/28");
        row("29 February", Frequency::Yearly, 1, "2000/12/31", "1996/2/29 1997/2/28 1998/2/28 1999/2/28 2000/2/29");
        row("out, up to the end", Frequency::Daily, 0, "1999/2/2", "1999/1/31 2/1 2/2");
        row("out, one day", Frequency::Daily, 0, "1999/1/31", "1999/1/31");
        row("out, an end before the start", Frequency::Daily, 0, "1998/1/1", "1999/1/31 2/1");
        row("out, a week past it", Frequency::Weekly, 0, "1999/2/8", "1999/1/31 2/7 2/14");
        row("out, a month past it", Frequency::Monthly, 0, "1999/2/28", "1999/1/31 2/28 3/31");
        row("out, a year past it", Frequency::Yearly, 0, "1999/1/31", "1999/1/31 2000/1/31");
    }

    void WritesIntoTheseDates()
    {
        QFETCH(Frequency, frequency);
        QFETCH(int, step);
        QFETCH(QString, end);
        QFETCH(QString, dates);
        QStringList expected;
        QString year;
        for (const QString& date : dates.split(u' ')) {
            if (date.count(u'/') == 2) year = date.left(5);
            expected += date.count(u'/') == 2 ? date : year + date;
        }
        QCOMPARE(step == 0 ? RemovalDates(frequency, expected.first(), end)
                           : EventDates(frequency, expected.first(), end, step),
                 expected);
    }

    void TheStartMayNotLieBehindTheEnd()
    {
        const QStringList ascending = {u"12/31/1998"_s, u"01/15/1999"_s, u"02/01/1999"_s, u"02/02/1999"_s,
                                       u"01/01/2000"_s};
        for (int start = 0; start < 5; ++start) {
            for (int end = 0; end < 5; ++end)
                QCOMPARE(fnCheckBackwardDate(ascending[start], ascending[end]), start <= end);
        }
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(RecurDatesTest)
#include "recurdatestest.moc"
