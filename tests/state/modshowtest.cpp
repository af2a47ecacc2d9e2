#include "state/modshow.h"

#include "platform/runtime/runtimeerror.h"
#include "state/calendarstate.h"
#include "testmain.h"

#include <QDate>
#include <QTest>

class ModShowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { ResetCalendarStateForTests(); }

    void WeekdaysAreThoseOfTheTrueCalendar()
    {
        for (int year : {1, 1600, 1900, 1999, 2000, 2100, 9999, 32767}) {
            for (int month = 1; month <= 12; ++month) {
                QCOMPARE(Weekday(year, month, 1), QDate(year, month, 1).dayOfWeek() % 7 + 1);
            }
        }
        // A 29 February that only the grid knows is the real 1 March.
        QCOMPARE(Weekday(2100, 2, 29), QDate(2100, 3, 1).dayOfWeek() % 7 + 1);
    }

    // Every first weekday with every month length. Each day is in the column of its weekday, and the other cells are
    // memos, numbered in the order of the cells.
    void EveryMonthFitsTheGrid()
    {
        for (int first = 1; first <= 7; ++first) {
            for (int length = 28; length <= 31; ++length) {
                const auto grid = MonthGrid(first, length);
                int memos = 0;
                QSet<int> days;
                for (int cell = 1; cell <= 35; ++cell) {
                    const DaySlot& slot = grid[static_cast<std::size_t>(cell - 1)];
                    if (slot.isMemo) {
                        QCOMPARE(slot.number, ++memos);
                        continue;
                    }
                    days << slot.number;
                    QCOMPARE((cell - 1) % 7, (first - 1 + slot.number - 1) % 7);
                    QVERIFY(cell <= 7 || slot.number == cell - first + 1);
                }
                QCOMPARE(days.size(), length);
                QCOMPARE(memos, 35 - length);
            }
        }
    }

    void TheTableOfLengthsStaysUntilItIsWritten()
    {
        subSetDaysInMonth(1996);
        g_iYear = 1999;
        g_iMonth = 2;
        QCOMPARE(int(fnDaysInMonth()), 29);
        QCOMPARE(int(fnFirstDayOfMonth()), 2);
        QCOMPARE(int(fnDaysInMonth()), 28);
        g_iMonth = 13;
        QCOMPARE(int(fnDaysInMonth()), 0);
        g_iMonth = 14;
        QVERIFY_EXCEPTION_THROWN(fnDaysInMonth(), RunTimeError);
    }

    void NamesOutsideTheTablesAreEmpty()
    {
        QCOMPARE(fnMonthName(13), QString());
        QCOMPARE(fnMonthName(3), u"MARCH"_s);
        g_iLanguage = 1;
        QCOMPARE(fnMonthName(3), u"MAERZ"_s);
        g_iLanguage = 3;
        QCOMPARE(fnMonthName(3), QString());
        QCOMPARE(fnColorInHex(u"FUSCHIA"_s), 0xFF00FFu);
        QCOMPARE(fnColorInHex(u"red"_s), 0u);
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(ModShowTest)
#include "modshowtest.moc"
