#include "calendar/moddate.h"

#include "platform/runtime/errortail.h"

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
        QTest::newRow("padded") << QStringLiteral("07/04/1999") << QStringLiteral("1999/7/4");
        QTest::newRow("bare") << QStringLiteral("7/4/1999") << QStringLiteral("1999/7/4");
        QTest::newRow("blanks") << QStringLiteral(" 7/ 4/1999") << QStringLiteral("1999/7/4");
        QTest::newRow("no slash") << QStringLiteral("1999") << QStringLiteral("1999/0/0");
        QTest::newRow("one slash") << QStringLiteral("7/1999") << QStringLiteral("1999/7/0");
        QTest::newRow("empty") << QString() << QStringLiteral("0/0/0");
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
        QTest::newRow("day") << QStringLiteral("1999/7/4") << QStringLiteral("Jul 4, 1999");
        QTest::newRow("memo of one digit") << QStringLiteral("1999/12/Memo3") << QStringLiteral("Dec Memo3, 1999");
        QTest::newRow("memo of two digits") << QStringLiteral("1999/1/Memo12") << QStringLiteral("Jan Memo12, 1999");
        QTest::newRow("no digit") << QStringLiteral("1999/1/Memo") << QStringLiteral("Jan 0, 1999");
        QTest::newRow("no month") << QStringLiteral("1999/13/4") << QStringLiteral(" 4, 1999");
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
        QTest::newRow("day") << QStringLiteral("1999/12/31") << QStringLiteral("1999/12/31");
        QTest::newRow("padded") << QStringLiteral("1999/07/04") << QStringLiteral("1999/7/4");
        QTest::newRow("of the grid alone") << QStringLiteral("1900/2/29") << QStringLiteral("1900/2/29");
        QTest::newRow("of no year's grid") << QStringLiteral("1999/2/29") << QString();
        QTest::newRow("memo") << QStringLiteral("1999/7/Memo3") << QString();
        QTest::newRow("no day") << QStringLiteral("1999/7") << QString();
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

QTEST_APPLESS_MAIN(ModDateTest)
#include "moddatetest.moc"
