#include "recurrence/recurdates.h"

#include "testmain.h"

#include <QTest>

// The dates of recurring events.
class RecurDatesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void WritesIntoTheseDates()
    {
        // The step, 0 for the dates of a removal; the end; the dates, starting with the start.
        for (const auto& [what, frequency, step, end, dates] : Rows<Frequency, int, const char*, const char*>{
                 {"across the year", Frequency::Daily, 1, "2000/1/2", "1999/12/30 12/31 2000/1/1 1/2"},
                 {"one day", Frequency::Daily, 1, "1999/12/30", "1999/12/30"},
                 {"leap centuries", Frequency::Daily, 1, "1900/3/1", "1900/2/28 2/29 3/1"},
                 {"2100 too", Frequency::Daily, 2, "2100/3/3", "2100/2/27 2/29 3/2"},
                 {"30th of February", Frequency::Daily, 30, "1999/12/31", "1999/1/31 2/30"},
                 {"every month as long as the first", Frequency::Daily, 45, "1999/5/31", "1999/1/31 3/14 4/28"},
                 {"end of time", Frequency::Daily, 1, "9999/12/31", "9999/12/30 12/31"},
                 {"beyond it", Frequency::Yearly, 32767, "9999/12/31", "9999/12/30"},
                 {"week", Frequency::Weekly, 1, "1999/2/12", "1999/1/29 2/5 2/12"},
                 {"week, not the end", Frequency::Weekly, 1, "1999/2/11", "1999/1/29 2/5"},
                 {"29th of February", Frequency::Weekly, 5, "1999/4/30", "1999/1/25 2/29 4/8"},
                 {"weeks across months", Frequency::Weekly, 15, "1999/9/30", "1999/1/29 5/10 8/22"},
                 {"weeks at the end of time", Frequency::Weekly, 1, "9999/12/31", "9999/12/25"},
                 {"31st", Frequency::Monthly, 1, "1999/5/31", "1999/1/31 2/28 3/31 4/30 5/31"},
                 {"30th", Frequency::Monthly, 1, "1999/5/30", "1999/1/30 2/28 3/28 4/30 5/30"},
                 {"29th", Frequency::Monthly, 13, "2004/9/1",
                  "1999/1/29 2000/2/29 2001/3/29 2002/4/29 2003/5/29 2004/6/29"},
                 {"quarters", Frequency::Monthly, 3, "2000/5/1", "1999/11/30 2000/2/29"},
                 {"cut once", Frequency::Monthly, 1, "1999/8/31",
                  "1998/11/30 12/30 1999/1/30 2/28 3/28 4/30 5/30 6/30 7/30 8/30"},
                 {"every other year", Frequency::Yearly, 2, "2002/12/31", "1996/2/29 1998/2/28 2000/2/29 2002/2/28"},
                 {"29 February", Frequency::Yearly, 1, "2000/12/31",
                  "1996/2/29 1997/2/28 1998/2/28 1999/2/28 2000/2/29"},
                 {"out, up to the end", Frequency::Daily, 0, "1999/2/2", "1999/1/31 2/1 2/2"},
                 {"out, one day", Frequency::Daily, 0, "1999/1/31", "1999/1/31"},
                 {"out, an end before the start", Frequency::Daily, 0, "1998/1/1", "1999/1/31 2/1"},
                 {"out, a week past it", Frequency::Weekly, 0, "1999/2/8", "1999/1/31 2/7 2/14"},
                 {"out, a month past it", Frequency::Monthly, 0, "1999/2/28", "1999/1/31 2/28 3/31"},
                 {"out, a year past it", Frequency::Yearly, 0, "1999/1/31", "1999/1/31 2000/1/31"}}) {
            QStringList expected;
            QString year;
            for (const QString& date : QString::fromLatin1(dates).split(u' ')) {
                if (date.count(u'/') == 2) year = date.left(5);
                expected += date.count(u'/') == 2 ? date : year + date;
            }
            const QString start = expected.first(), last = QString::fromLatin1(end);
            const QStringList found =
                step == 0 ? RemovalDates(frequency, start, last) : EventDates(frequency, start, last, step);
            QVERIFY2(found == expected, what);
        }
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
