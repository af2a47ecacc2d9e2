#include "state/moddate.h"

#include "platform/runtime/errortail.h"
#include "testmain.h"

#include <QTest>

class ModDateTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { g_bErrorTrap = true; }

    void KeysDropPadding()
    {
        for (const auto& [entry, key] : {std::pair("07/04/1999", "1999/7/4"),
                                         {"7/4/1999", "1999/7/4"},
                                         {" 7/ 4/1999", "1999/7/4"},
                                         {"1999", "1999/0/0"},
                                         {"7/1999", "1999/7/0"},
                                         {"", "0/0/0"}})
            QCOMPARE(fnFnGetQMTDate(QString::fromLatin1(entry)), QString::fromLatin1(key));
    }

    void KeysAreShownByMonthAndDay()
    {
        for (const auto& [key, shown] : {std::pair("1999/7/4", "Jul 4, 1999"),
                                         {"1999/12/Memo3", "Dec Memo3, 1999"},
                                         {"1999/1/Memo12", "Jan Memo12, 1999"},
                                         {"1999/1/Memo", "Jan 0, 1999"},
                                         {"1999/13/4", " 4, 1999"}})
            QCOMPARE(fnFormatDateKey(QString::fromLatin1(key)), QString::fromLatin1(shown));
    }

    void OnlyKeysOfDaysAreRead()
    {
        for (const auto& [key, read] : {std::pair("1999/12/31", "1999/12/31"),
                                        {"1999/07/04", "1999/7/4"},
                                        {"1900/2/29", "1900/2/29"}, // a date of the grid only
                                        {"999/7/4", "999/7/4"},
                                        {"1/12/31", "1/12/31"},
                                        {"10000/1/1", ""},
                                        {"1999/2/29", ""},
                                        {"1999/7/Memo3", ""},
                                        {"1999/7", ""}}) {
            const auto day = DayOfKey(QString::fromLatin1(key));
            QCOMPARE(day ? KeyOf(*day) : QString(), QString::fromLatin1(read));
        }
    }

    // Every fourth year has a 29 February. Only digits count, and the last four characters are the year.
    void EntryDatesAreValidated()
    {
        for (const char* valid : {"2/29/2000", "2/29/1900", "12/31/1999", "1/1/99999"})
            QVERIFY2(fnValidateDate(QString::fromLatin1(valid)), valid);
        for (const char* invalid : {"2/29/1999", "2/30/2000", "4/31/1999", "13/1/1999", "0/1/1999", "1/0/1999",
                                    "1/1/0000", "+1/1/1999", "1/&H1/1999", "1/1", "1999", "", "99999/1/1999"})
            QVERIFY2(!fnValidateDate(QString::fromLatin1(invalid)), invalid);
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(ModDateTest)
#include "moddatetest.moc"
