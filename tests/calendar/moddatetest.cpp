#include "calendar/moddate.h"

#include "platform/runtime/errortail.h"
#include "testmain.h"

#include <QTest>

class ModDateTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { g_bErrorTrap = true; }

    void KeysDropPadding_data()
    {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<QString>("key");
        QTest::newRow("padded") << u"07/04/1999"_s << u"1999/7/4"_s;
        QTest::newRow("bare") << u"7/4/1999"_s << u"1999/7/4"_s;
        QTest::newRow("blanks") << u" 7/ 4/1999"_s << u"1999/7/4"_s;
        QTest::newRow("no slash") << u"1999"_s << u"1999/0/0"_s;
        QTest::newRow("one slash") << u"7/1999"_s << u"1999/7/0"_s;
        QTest::newRow("empty") << QString() << u"0/0/0"_s;
    }

    void KeysDropPadding()
    {
        QFETCH(QString, entry);
        QTEST(fnFnGetQMTDate(entry), "key");
    }

    void KeysAreShownByMonthAndDay_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("shown");
        QTest::newRow("day") << u"1999/7/4"_s << u"Jul 4, 1999"_s;
        QTest::newRow("memo of one digit") << u"1999/12/Memo3"_s << u"Dec Memo3, 1999"_s;
        QTest::newRow("memo of two digits") << u"1999/1/Memo12"_s << u"Jan Memo12, 1999"_s;
        QTest::newRow("no digit") << u"1999/1/Memo"_s << u"Jan 0, 1999"_s;
        QTest::newRow("no month") << u"1999/13/4"_s << u" 4, 1999"_s;
    }

    void KeysAreShownByMonthAndDay()
    {
        QFETCH(QString, key);
        QTEST(fnFormatDateKey(key), "shown");
    }

    void OnlyKeysOfDaysAreRead_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("read");
        QTest::newRow("day") << u"1999/12/31"_s << u"1999/12/31"_s;
        QTest::newRow("padded") << u"1999/07/04"_s << u"1999/7/4"_s;
        QTest::newRow("of the grid alone") << u"1900/2/29"_s << u"1900/2/29"_s;
        QTest::newRow("of no year's grid") << u"1999/2/29"_s << QString();
        QTest::newRow("memo") << u"1999/7/Memo3"_s << QString();
        QTest::newRow("no day") << u"1999/7"_s << QString();
    }

    void OnlyKeysOfDaysAreRead()
    {
        QFETCH(QString, key);
        const auto day = DayOfKey(key);
        QTEST(day ? KeyOf(*day) : QString(), "read");
    }

    void EntryDatesAreValidated_data()
    {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<bool>("valid");
        const auto row = [](const char* entry, bool valid) {
            QTest::newRow(entry) << QString::fromLatin1(entry) << valid;
        };
        row("2/29/2000", true);
        row("2/29/1900", true); // every fourth year
        row("2/29/1999", false);
        row("2/30/2000", false);
        row("12/31/1999", true);
        row("4/31/1999", false);
        row("13/1/1999", false);
        row("0/1/1999", false);
        row("1/0/1999", false);
        row("1/1/0000", false);
        row("+1/1/1999", false); // digits alone
        row("1/&H1/1999", false);
        row("1/1", false);
        row("1999", false);
        row("", false);
        row("99999/1/1999", false);
        row("1/1/99999", true); // the last four characters
    }

    void EntryDatesAreValidated()
    {
        QFETCH(QString, entry);
        QTEST(fnValidateDate(entry), "valid");
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(ModDateTest)
#include "moddatetest.moc"
